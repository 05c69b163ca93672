#include "desktop/WebPages.h"
#include "desktop/Addresses.h"
#include "desktop/PageLinks.h"
#include "desktop/QtText.h"
#include "desktop/SupportPage.h"
#include "desktop/Theme.h"
#include <QMenu>
#include <QPrinter>
#include <QTimer>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineFindTextResult>
#include <QWebEngineSettings>
#include <algorithm>
#include <utility>

WebPages::WebPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new QWebEngineView(theParent)), clicks(*view)
{
    view->setPage(&page);
    // Until the first page shows; a page without a colour of its own is white.
    page.setBackgroundColor(Theme::Paper);
    // Creates the browser's own widget now, before the window is shown, instead of with the first page.
    page.runJavaScript(QString());
    view->setFocusPolicy(Qt::StrongFocus);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    profile.setUrlRequestInterceptor(&requests);
    connect(view, &QWidget::customContextMenuRequested, this, &WebPages::ShowContextMenu);
    connect(&page, &QWebEnginePage::navigationRequested, this, [this](QWebEngineNavigationRequest &theRequest) {
        if (!MayNavigate(theRequest))
            theRequest.reject();
    });
    connect(&page, &QWebEnginePage::loadingChanged, this, &WebPages::LoadingChanged);
    connect(&page, &QWebEnginePage::urlChanged, this, &WebPages::UrlChanged);
    connect(&page, &QWebEnginePage::renderProcessTerminated, this, &WebPages::ProcessEnded);
    connect(&page, &QWebEnginePage::linkHovered, this, [this](const QString &theLink) { ShowLink(QUrl(theLink)); });
    connect(&page, &QWebEnginePage::newWindowRequested, this, &WebPages::OpenedWindow);
    connect(&page, &QWebEnginePage::titleChanged, this, [this](const QString &theTitle) {
        // The browser uses the URL as the title of a page that has none, above all of a missing page.
        ShowTitle(QUrl(theTitle) == page.url() ? QString() : theTitle);
    });
    connect(&profile, &QWebEngineProfile::downloadRequested, this, &WebPages::OfferDownload);
    connect(&page, &QWebEnginePage::findTextFinished, this, [this](const QWebEngineFindTextResult &theResult) {
        emit Found(theResult.activeMatch(), theResult.numberOfMatches());
    });
    connect(&page, &QWebEnginePage::pdfPrintingFinished, this, [this](const QString &theFile, bool isDone) {
        ShowStatus((isDone ? "Saved: " : "Could not save ") + FromQString(theFile));
    });
}

WebPages::~WebPages()
{
    page.disconnect(this);
    profile.disconnect(this);
    delete view;
}

void WebPages::Load(const QUrl &theUrl)
{
    AllowAgain();
    page.load(theUrl);
}

void WebPages::AllowAgain()
{
    page.AllowMessages();
    downloads.AllowOffers();
}

// A notice is no page that could be loaded again; the one that it stands for is.
void WebPages::Reload()
{
    if (isNotice)
        Open(page.url());
    else
        Travel(true, QWebEnginePage::Reload);
}

bool WebPages::Travel(bool canGo, QWebEnginePage::WebAction theAction)
{
    CancelOpen();
    isTravelling = canGo;
    AllowAgain();
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

// The user has chosen the place in the program itself. No script can make a request of the type for that.
bool WebPages::IsByView(const QWebEngineNavigationRequest &theRequest)
{
    switch (theRequest.navigationType()) {
    case QWebEngineNavigationRequest::TypedNavigation:
        return true;
    case QWebEngineNavigationRequest::BackForwardNavigation:
    case QWebEngineNavigationRequest::ReloadNavigation:
        return std::exchange(isTravelling, false) || theRequest.url() == page.url();
    default:
        return false;
    }
}

bool WebPages::MayNavigate(const QWebEngineNavigationRequest &theRequest)
{
    const QUrl url = theRequest.url();
    const bool isRedirect = theRequest.navigationType() == QWebEngineNavigationRequest::RedirectNavigation;
    const bool isForm = theRequest.navigationType() == QWebEngineNavigationRequest::FormSubmittedNavigation;
    // Until a server has answered, the page in the view is still another one.
    const QUrl from = isRedirect && !loading.isEmpty() ? loading : page.url();
    const bool isMain = theRequest.isMainFrame();
    if (!(isMain && IsByView(theRequest)) && !MayStep({from, url, !isMain, isForm, isRedirect, clicks.HasClick()}))
        return false;
    if (!isMain)
        return true;
    loading = url;
    page.settings()->setAttribute(QWebEngineSettings::ErrorPageEnabled, !SupportPage::IsSupport(url));
    isNotice = url.scheme() == QLatin1String("data");
    if (isNotice)
        return theRequest.navigationType() != QWebEngineNavigationRequest::ReloadNavigation ||
               BeforeNavigate(page.url());
    return BeforeNavigate(url);
}

bool WebPages::MayStep(PageRules::Step theStep)
{
    const PageRules::Verdict verdict = PageRules::Judge(theStep, [&] { return !LinkTo(theStep.To).isEmpty(); });
    if (theStep.HasClick && verdict != PageRules::Verdict::Refuse &&
        (!theStep.IsFrame || verdict != PageRules::Verdict::Allow)) {
        clicks.UseUp();
        AllowAgain();
    }
    switch (verdict) {
    case PageRules::Verdict::Allow:
        return true;
    case PageRules::Verdict::Open:
        Open(IsPage(theStep.To) ? LinkTo(theStep.To) : theStep.To);
        break;
    case PageRules::Verdict::AskPage:
    case PageRules::Verdict::AskOther:
        AskToOpen(theStep.To);
        break;
    case PageRules::Verdict::Refuse:
        if (!theStep.IsFrame)
            ShowRefused(theStep);
    }
    return false;
}

QUrl WebPages::LinkTo(const QUrl &theUrl) const
{
    QUrl Result = LinkInFile(page.url(), theUrl);
    for (auto frame = requests.Frames().begin(); Result.isEmpty() && frame != requests.Frames().end(); ++frame)
        Result = LinkInFile(*frame, theUrl);
    return Result;
}

// A page that is to open in a new window opens in this one.
void WebPages::OpenedWindow(const QWebEngineNewWindowRequest &theRequest)
{
    const QUrl url = theRequest.requestedUrl();
    if (MayStep({page.url(), url, false, false, false, theRequest.isUserInitiated() && clicks.HasClick()}))
        Open(url);
}

// Needed because navigationRequested reports neither a jump within the page nor the address of a notice page.
void WebPages::UrlChanged(const QUrl &theUrl)
{
    const bool isSamePage = !page.isLoading();
    if ((isSamePage || AddressOf(theUrl) != Address()) && BeforeNavigate(theUrl) && isSamePage)
        ShowStatus("Done");
    emit HistoryChanged();
}

void WebPages::ShowNotice(const QString &thePage, const QUrl &theUrl, const Text &theStatus)
{
    noticeStatus = theStatus;
    QTimer::singleShot(0, this, [this, thePage, theUrl] { page.setHtml(thePage, theUrl); });
}

void WebPages::StandInFor(const QUrl &theUrl)
{
    ShowNotice(SupportPage::InPlaceOf(theUrl, tr("The support site cannot be reached at the moment.")), theUrl,
        "Could not open " + Address());
}

// The place that Back leads to; none when there is none. Behind a page that stands in for the support site lie the
// attempts to load that and earlier such pages: they would only lead here again.
std::optional<QWebEngineHistoryItem> WebPages::PlaceBefore() const
{
    const bool isStandIn = isNotice && SupportPage::IsSupport(page.url());
    const auto items = page.history()->backItems(page.history()->count());
    const auto found = std::find_if(items.rbegin(), items.rend(), [&](const QWebEngineHistoryItem &item) {
        return !isStandIn || (item.url() != page.url() && item.url().scheme() != QLatin1String("data"));
    });
    return found == items.rend() ? std::nullopt : std::optional(*found);
}

bool WebPages::Back()
{
    CancelOpen();
    AllowAgain();
    const auto place = PlaceBefore();
    isTravelling = place.has_value();
    if (place)
        page.history()->goToItem(*place);
    return place.has_value();
}

// The view stays on its page, or says why it has none.
void WebPages::OfferDownload(QWebEngineDownloadRequest *theRequest)
{
    if (clicks.HasClick()) {
        clicks.UseUp();
        AllowAgain();
    }
    if (page.url().isEmpty())
        ShowNotice(CannotShowPage(theRequest->url()), theRequest->url(), CannotShow());
    else if (AddressOf(page.url()) != Address())
        BeforeNavigate(page.url());
    downloads.Offer(*theRequest);
}

void WebPages::Find(const QString &theText, bool isBackward)
{
    page.findText(theText, isBackward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags());
}

// A PDF file is written by the browser, so that its text stays text.
void WebPages::Print(const std::shared_ptr<QPrinter> &thePrinter)
{
    if (thePrinter->outputFormat() == QPrinter::PdfFormat)
        return page.printToPdf(thePrinter->outputFileName(), thePrinter->pageLayout());
    // The printer must live until the pages are printed.
    connect(
        view, &QWebEngineView::printFinished, this,
        [this, thePrinter](bool isDone) { ShowStatus(isDone ? "Printed" : "Could not print this page"); },
        Qt::SingleShotConnection);
    view->print(thePrinter.get());
}

void WebPages::LoadingChanged(const QWebEngineLoadingInfo &theInfo)
{
    emit HistoryChanged();
    if (theInfo.status() != QWebEngineLoadingInfo::LoadStartedStatus) {
        page.setBackgroundColor(Qt::white);
        ApplyZoom();
    }
    switch (theInfo.status()) {
    case QWebEngineLoadingInfo::LoadSucceededStatus:
        ShowStatus(isNotice ? noticeStatus : "Done");
        break;
    case QWebEngineLoadingInfo::LoadFailedStatus:
        if (SupportPage::IsSupport(theInfo.url())) {
            StandInFor(theInfo.url());
            break;
        }
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
