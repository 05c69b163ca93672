// The page view with a real browser, QtWebEngine.
#pragma once
#include "desktop/Pages.h"
#include <QPointer>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>
#include <QWebEngineNavigationRequest>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineView>

class WebPages final : public Pages
{
public:
    WebPages(Browser &theBrowser, QWidget *theParent);
    ~WebPages() override;
    QWidget *View() override { return view; }
    bool Back() override { return Trigger(page.history()->canGoBack(), QWebEnginePage::Back); }
    bool Forward() override { return Trigger(page.history()->canGoForward(), QWebEnginePage::Forward); }
    void Reload() override { Trigger(true, QWebEnginePage::Reload); }
    void Stop() override;

protected:
    void Load(const QUrl &theUrl) override { page.load(theUrl); }

private:
    bool Trigger(bool canGo, QWebEnginePage::WebAction theAction);
    bool MayNavigate(const QWebEngineNavigationRequest &theRequest);
    void UrlChanged(const QUrl &theUrl);
    void LoadingChanged(const QWebEngineLoadingInfo &theInfo);
    void ShowStopped();
    void ProcessEnded();
    void ShowContextMenu(const QPoint &thePosition);

    // Off the record: it stores nothing. It must outlive the page.
    QWebEngineProfile profile;
    QWebEnginePage page{&profile};
    QPointer<QWebEngineView> view;
    bool isNotice = false;
    Text reloaded;  // the last page that was reloaded because its process had ended
};
