// The page view with a real browser in it.
#include "desktop/Pages.h"
#include <QMenu>
#include <QPointer>
#include <QTimer>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNavigationRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineView>
#include <utility>

namespace
{
class WebPages final : public Pages
{
public:
    WebPages(Browser &theBrowser, QWidget *theParent);
    ~WebPages() override;
    QWidget *View() override { return view; }
    bool Back() override { return Go(page.history()->canGoBack(), QWebEnginePage::Back); }
    bool Forward() override { return Go(page.history()->canGoForward(), QWebEnginePage::Forward); }
    void Reload() override { Go(true, QWebEnginePage::Reload); }
    void Stop() override;

protected:
    void Load(const QUrl &theUrl) override { page.load(theUrl); }

private:
    bool Go(bool canGo, QWebEnginePage::WebAction theAction);
    bool MayGo(const QWebEngineNavigationRequest &theRequest);
    void Moved(const QUrl &theUrl);
    void Loaded(const QWebEngineLoadingInfo &theInfo);
    void Stopped();
    void Died();
    void ShowMenu(const QPoint &theSpot);

    // Nothing is remembered beyond the view. The page must go before it.
    QWebEngineProfile profile;
    QWebEnginePage page{&profile};
    QPointer<QWebEngineView> view;
    bool isNotice = false;
    Text revived;  // the last page that was loaded anew because it had died
};

WebPages::WebPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new QWebEngineView(theParent))
{
    view->setPage(&page);
    // Brings the browser's own widget into being now, before the window shows, and not with the first page.
    page.runJavaScript(QString());
    view->setFocusPolicy(Qt::StrongFocus);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    QWebEngineSettings &settings = *page.settings();
    // Shows PDF.
    settings.setAttribute(QWebEngineSettings::PluginsEnabled, true);
    // What the user didn't click opens nothing.
    settings.setAttribute(QWebEngineSettings::JavascriptCanOpenWindows, false);
    settings.setAttribute(QWebEngineSettings::NavigateOnDropEnabled, false);

    connect(view, &QWidget::customContextMenuRequested, this, &WebPages::ShowMenu);
    connect(&page, &QWebEnginePage::navigationRequested, this, [this](QWebEngineNavigationRequest &theRequest) {
        if (!MayGo(theRequest))
            theRequest.reject();
    });
    connect(&page, &QWebEnginePage::loadingChanged, this, &WebPages::Loaded);
    connect(&page, &QWebEnginePage::urlChanged, this, &WebPages::Moved);
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &WebPages::Died);
    connect(&page, &QWebEnginePage::linkHovered, this, [this](const QString &theLink) { ShowLink(QUrl(theLink)); });
    connect(&page, &QWebEnginePage::newWindowRequested, this,
        [this](const QWebEngineNewWindowRequest &theRequest) { Open(theRequest.requestedUrl()); });
    connect(&page, &QWebEnginePage::titleChanged, this, [this](const QString &theTitle) {
        // A page without a title, one that isn't there above all, is given its own URL for one.
        ShowTitle(QUrl(theTitle) == page.url() ? QString() : theTitle);
    });
    // Nothing is ever saved: a request that isn't accepted ends by itself.
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

bool WebPages::Go(bool canGo, QWebEnginePage::WebAction theAction)
{
    Forget();
    if (canGo)
        page.triggerAction(theAction);
    return canGo;
}

void WebPages::Stop()
{
    Forget();
    if (!page.isLoading())
        return;
    page.triggerAction(QWebEnginePage::Stop);
    Stopped();
}

void WebPages::Stopped()
{
    // Nothing of the new page has come, so the old one stays, and with it its address.
    if (!page.url().isEmpty() && AddressOf(page.url()) != Address())
        BeforeNavigate(page.url());
    ShowStatus("Stopped");
}

bool WebPages::MayGo(const QWebEngineNavigationRequest &theRequest)
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
    // The browser hands on by itself what is no page, a mail address for one.
    return !IsPage(url) || BeforeNavigate(url);
}

// MayGo isn't asked about a place on the same page, and a notice comes there without its address.
void WebPages::Moved(const QUrl &theUrl)
{
    const bool isSamePage = !page.isLoading();
    if ((isSamePage || AddressOf(theUrl) != Address()) && BeforeNavigate(theUrl) && isSamePage)
        ShowStatus("Done");
}

void WebPages::Loaded(const QWebEngineLoadingInfo &theInfo)
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
        // Refused links end here too, pages that the next one has overtaken, and files that can't be shown.
        if (!theInfo.url().isLocalFile() && AddressOf(theInfo.url()) == Address())
            Stopped();
        break;
    case QWebEngineLoadingInfo::LoadStartedStatus:
        break;
    }
}

// Once by itself; a page that brings its process down each time must not do so for ever.
void WebPages::Died()
{
    if (std::exchange(revived, Address()) != Address())
        QTimer::singleShot(0, this, &WebPages::Reload);
    else
        ShowStatus("This page has stopped working. Refresh, in the Navigation menu, opens it again.");
}

// The browser's own menu without what needs tabs, windows or a place to save to.
void WebPages::ShowMenu(const QPoint &theSpot)
{
    QMenu *menu = view->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto action : {QWebEnginePage::SavePage, QWebEnginePage::ViewSource, QWebEnginePage::InspectElement,
             QWebEnginePage::OpenLinkInNewTab, QWebEnginePage::OpenLinkInNewWindow, QWebEnginePage::DownloadLinkToDisk,
             QWebEnginePage::DownloadImageToDisk, QWebEnginePage::DownloadMediaToDisk})
        menu->removeAction(page.action(action));
    if (!UrlOfDriveLink(view->lastContextMenuRequest()->linkUrl()).isEmpty())
        menu->removeAction(page.action(QWebEnginePage::CopyLinkToClipboard));
    menu->popup(view->mapToGlobal(theSpot));
}
}  // namespace

Pages *Pages::Make(Browser &theBrowser, QWidget *theParent)
{
    return new WebPages(theBrowser, theParent);
}
