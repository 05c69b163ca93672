#include "desktop/WebPages.h"
#include "desktop/Addresses.h"
#include <QMenu>
#include <QTimer>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineDownloadRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <utility>

WebPages::WebPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new QWebEngineView(theParent))
{
    view->setPage(&page);
    // Creates the browser's own widget now, before the window is shown, instead of with the first page.
    page.runJavaScript(QString());
    view->setFocusPolicy(Qt::StrongFocus);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    QWebEngineSettings &settings = *page.settings();
    // PDF files need it.
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, true);
    // A page may open windows only when the user clicks, and dropping a file must not open it.
    settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings.setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);

    connect(view, &QWidget::customContextMenuRequested, this, &WebPages::ShowContextMenu);
    connect(&page, &QWebEnginePage::navigationRequested, this, [this](QWebEngineNavigationRequest &theRequest) {
        if (!MayNavigate(theRequest))
            theRequest.reject();
    });
    connect(&page, &QWebEnginePage::loadingChanged, this, &WebPages::LoadingChanged);
    connect(&page, &QWebEnginePage::urlChanged, this, &WebPages::UrlChanged);
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &WebPages::ProcessEnded);
    connect(&page, &QWebEnginePage::linkHovered, this, [this](const QString &theLink) { ShowLink(QUrl(theLink)); });
    connect(&page, &QWebEnginePage::newWindowRequested, this,
        [this](const QWebEngineNewWindowRequest &theRequest) { Open(theRequest.requestedUrl()); });
    connect(&page, &QWebEnginePage::titleChanged, this, [this](const QString &theTitle) {
        // The browser uses the URL as the title of a page that has none, above all of a missing page.
        ShowTitle(QUrl(theTitle) == page.url() ? QString() : theTitle);
    });
    // Downloads are never accepted, and a request that is not accepted is dropped.
    connect(&profile, &QWebEngineProfile::downloadRequested, this, [this](const QWebEngineDownloadRequest *theRequest) {
        QTimer::singleShot(0, this, [this, url = theRequest->url()] { page.setHtml(CannotShowPage(url), url); });
    });
}

WebPages::~WebPages()
{
    page.disconnect(this);
    profile.disconnect(this);
    delete view;
}

bool WebPages::Trigger(bool canGo, QWebEnginePage::WebAction theAction)
{
    CancelOpen();
    if (canGo)
        page.triggerAction(theAction);
    return canGo;
}

void WebPages::Stop()
{
    CancelOpen();
    if (!page.isLoading())
        return;
    page.triggerAction(QWebEnginePage::Stop);
    ShowStopped();
}

void WebPages::ShowStopped()
{
    // Nothing of the new page has arrived: the old page still shows, so its address is set again.
    if (!page.url().isEmpty() && AddressOf(page.url()) != Address())
        BeforeNavigate(page.url());
    ShowStatus("Stopped");
}

bool WebPages::MayNavigate(const QWebEngineNavigationRequest &theRequest)
{
    const QUrl url = theRequest.url();
    const bool isDriveLink = !UrlOfDriveLink(url).isEmpty();
    if (!theRequest.isMainFrame())
        return !isDriveLink;
    if (isDriveLink) {
        Open(url);
        return false;
    }
    isNotice = url.scheme() == QLatin1String("data");
    if (isNotice)
        return theRequest.navigationType() != QWebEngineNavigationRequest::ReloadNavigation ||
               BeforeNavigate(page.url());
    // The browser itself passes other URLs, such as mail addresses, to the system.
    return !IsPage(url) || BeforeNavigate(url);
}

// Needed because navigationRequested reports neither a jump within the page nor the address of a notice page.
void WebPages::UrlChanged(const QUrl &theUrl)
{
    const bool isSamePage = !page.isLoading();
    if ((isSamePage || AddressOf(theUrl) != Address()) && BeforeNavigate(theUrl) && isSamePage)
        ShowStatus("Done");
}

void WebPages::LoadingChanged(const QWebEngineLoadingInfo &theInfo)
{
    switch (theInfo.status()) {
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        ShowStatus(isNotice ? CannotShow() : "Done");
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        if (theInfo.isErrorPage())
            ShowTitle({});
        ShowStatus("Could not open " + Address());
        break;
    case QWebEngineLoadingInfo::LoadStoppedStatus:
        // Also reached by rejected links, by pages that a later request replaced, and by files that cannot be shown.
        if (!theInfo.url().isLocalFile() && AddressOf(theInfo.url()) == Address())
            ShowStopped();
        break;
    case QWebEngineLoadingInfo::LoadStartedStatus:
        break;
    }
}

// Reloads the page, but only once in a row: a page that always crashes would otherwise reload forever.
void WebPages::ProcessEnded()
{
    if (std::exchange(reloaded, Address()) != Address())
        QTimer::singleShot(0, this, &WebPages::Reload);
    else
        ShowStatus("This page has stopped working. To open it again, choose Refresh from the Navigation menu.");
}

// The browser's standard menu without the items that need tabs, windows or a place to save files.
void WebPages::ShowContextMenu(const QPoint &thePosition)
{
    QMenu *menu = view->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto action : {QWebEnginePage::SavePage, QWebEnginePage::ViewSource, QWebEnginePage::InspectElement,
             QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewWindow, QWebEnginePage::DownloadLinkToDisk,
             QWebEnginePage::DownloadImageToDisk, QWebEnginePage::DownloadMediaToDisk})
        menu->removeAction(page.action(action));
    if (!UrlOfDriveLink(view->lastContextMenuRequest()->linkUrl()).isEmpty())
        menu->removeAction(page.action(QWebEnginePage::CopyLinkToClipboard));
    menu->popup(view->mapToGlobal(thePosition));
}
