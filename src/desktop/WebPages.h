// The page view with a real browser, QtWebEngine.
#pragma once
#include "desktop/ClickWatch.h"
#include "desktop/Downloads.h"
#include "desktop/PageRules.h"
#include "desktop/Pages.h"
#include "desktop/WebPage.h"
#include "desktop/WebRequests.h"
#include <QPointer>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNavigationRequest>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <optional>

class WebPages final : public Pages
{
public:
    WebPages(Browser &theBrowser, QWidget *theParent);
    ~WebPages() override;
    QWidget *View() override { return view; }
    bool Back() override;
    bool Forward() override { return Travel(page.history()->canGoForward(), QWebEnginePage::Forward); }
    void Reload() override;
    void Stop() override;
    bool CanGoBack() const override { return PlaceBefore().has_value(); }
    bool CanGoForward() const override { return page.history()->canGoForward(); }
    void Find(const QString &theText, bool isBackward) override;
    void Print(const std::shared_ptr<QPrinter> &thePrinter) override;

protected:
    void Load(const QUrl &theUrl) override;
    void ApplyZoom() override { view->setZoomFactor(Zoom() / 100.0); }

private:
    // The user has gone on: what a page may do once, it may do again.
    void AllowAgain();
    bool Travel(bool canGo, QWebEnginePage::WebAction theAction);
    std::optional<QWebEngineHistoryItem> PlaceBefore() const;
    bool MayNavigate(const QWebEngineNavigationRequest &theRequest);
    bool IsByView(const QWebEngineNavigationRequest &theRequest);
    // Whether the page may go on to the place by itself. If not, the view does what is left to do.
    bool MayStep(PageRules::Step theStep);
    QUrl LinkTo(const QUrl &theUrl) const;
    void OpenedWindow(const QWebEngineNewWindowRequest &theRequest);
    void UrlChanged(const QUrl &theUrl);
    void LoadingChanged(const QWebEngineLoadingInfo &theInfo);
    void ShowStopped();
    void ShowNotice(const QString &thePage, const QUrl &theUrl, const Text &theStatus);
    void StandInFor(const QUrl &theUrl);
    void OfferDownload(QWebEngineDownloadRequest *theRequest);
    void ProcessEnded();
    void ShowContextMenu(const QPoint &thePosition);

    // Off the record: it stores nothing. It must outlive the page.
    QWebEngineProfile profile;
    WebRequests requests;
    WebPage page{profile};
    QPointer<QWebEngineView> view;
    ClickWatch clicks;
    Downloads downloads{*view, [this](const Text &theStatus) { ShowStatus(theStatus); }};
    QUrl loading;               // what the view itself is opening
    bool isTravelling = false;  // Back, Forward or Refresh was chosen
    bool isNotice = false;
    Text noticeStatus;
    Text reloaded;  // the last page that was reloaded because its process had ended
};
