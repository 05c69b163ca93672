// Offers to save what a page cannot show. Nothing is saved unless the user chooses a place for it.
#pragma once
#include "base/Text.h"
#include <QWebEngineDownloadRequest>
#include <QWebEngineView>
#include <functional>

class Downloads final : public QObject
{
public:
    using Tell = std::function<void(const Text &theStatus)>;
    // theTell shows what has become of a file.
    Downloads(QWebEngineView &theView, Tell theTell);
    // Must be called while the request is being announced: after that it is dropped. Returns false when the user saves
    // nothing.
    bool Offer(QWebEngineDownloadRequest &theRequest);
    // The user has gone on, so that files may be offered again.
    void AllowOffers() { hasRefused = false; }

private:
    QWebEngineView &view;
    Tell tell;
    QString lastDirectory;
    bool isAsking = false;
    bool hasRefused = false;  // a page cannot ask again and again
};
