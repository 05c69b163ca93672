#include "desktop/Downloads.h"
#include "desktop/Addresses.h"
#include "desktop/Boxes.h"
#include "desktop/PageRules.h"
#include "desktop/QtText.h"
#include <QFileInfo>
#include <QPointer>
#include <QStandardPaths>
#include <QWebEnginePage>
#include <utility>

Downloads::Downloads(QWebEngineView &theView, Tell theTell)
    : view(theView), tell(std::move(theTell)),
      lastDirectory(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation))
{
}

// A file from the web is announced with its address. What a page of the web has made itself bears the page's address.
static QString TitleFor(const QUrl &theFile, const QUrl &thePage)
{
    const QUrl &from = PageRules::IsWeb(theFile) || !PageRules::IsWeb(thePage) ? theFile : thePage;
    return PageRules::IsWeb(from) ? QObject::tr("Save the file from %1").arg(from.toString(QUrl::FullyEncoded))
                                  : QObject::tr("Save the file");
}

bool Downloads::Offer(QWebEngineDownloadRequest &theRequest)
{
    const QString name = QFileInfo(theRequest.suggestedFileName()).fileName();
    if (isAsking || hasRefused) {
        tell("Not saved: " + FromQString(name));
        return false;
    }
    const QPointer<QWebEngineDownloadRequest> request = &theRequest;
    const QPointer<Downloads> here = this;
    isAsking = true;
    const QString file = Boxes::ChooseFileToSave(
        view.window(), TitleFor(theRequest.url(), view.url()), lastDirectory + QLatin1Char('/') + name);
    if (!here || !request)
        return false;
    isAsking = false;
    hasRefused = file.isEmpty();
    if (hasRefused) {
        tell("Not saved: " + FromQString(name));
        return false;
    }
    const QFileInfo place(file);
    lastDirectory = place.path();
    theRequest.setDownloadDirectory(place.path());
    theRequest.setDownloadFileName(place.fileName());
    connect(&theRequest, &QWebEngineDownloadRequest::stateChanged, this,
        [this, &theRequest, file](QWebEngineDownloadRequest::DownloadState theState) {
            if (theState == QWebEngineDownloadRequest::DownloadCompleted)
                tell("Saved: " + FromQString(file));
            else if (theState == QWebEngineDownloadRequest::DownloadInterrupted)
                tell("Could not save " + FromQString(file) + ": " + FromQString(theRequest.interruptReasonString()));
        });
    theRequest.accept();
    return true;
}
