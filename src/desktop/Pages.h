// The page view of a screen with a browser. Builds with QtWebEngine use a real browser (WebPages); others use a simple
// view (TextPages), which shows the program's own pages well.
#pragma once
#include "toolkit/Controls.h"
#include <QUrl>
#include <QWidget>

// The view of one Browser control. It calls the gates BrowserGoes, BrowserSays and BrowserTitled and keeps the
// control's NowAddress up to date.
class Pages : public QObject
{
    Q_OBJECT
public:
    // Makes the view as a child of theParent, which deletes it. Call it before the window is shown: a visible window
    // may be recreated when a browser is added to it; it then flickers and loses the focus.
    static Pages *Make(Browser &theBrowser, QWidget *theParent);
    virtual QWidget *View() = 0;
    // Loads a URL, or the file that a drive link means, from the event loop; of several requests only the last is
    // loaded. The first page that is opened takes the focus.
    void Open(const QUrl &theUrl);
    // Back and Forward return false when there is no page to go to.
    virtual bool Back() = 0;
    virtual bool Forward() = 0;
    virtual void Reload() = 0;
    virtual void Stop() = 0;

protected:
    Pages(Browser &theBrowser, QWidget *theParent);

    virtual void Load(const QUrl &theUrl) = 0;
    // Drops a request of Open that has not been loaded yet.
    void CancelOpen() { requested.clear(); }
    // Must be called before each navigation. Returns false when the navigation must not take place.
    bool BeforeNavigate(const QUrl &theUrl);
    // Shows the title of the page; a page without a title is called by the name of its file.
    void ShowTitle(const QString &theTitle);
    // Sets the text of the status bar for as long as the pointer is not on a link.
    void ShowStatus(const Text &theStatus);
    // Shows the address of the link under the pointer; with an empty link the status again.
    void ShowLink(const QUrl &theLink);
    const Text &Address() const { return browser.NowAddress; }
    // The status text, and the notice page, for a file of a kind that the view cannot show.
    Text CannotShow() const;
    QString CannotShowPage(const QUrl &theUrl) const;

private:
    Browser &browser;
    QUrl requested;
    Text status;
    bool hasOpened = false;
};

// A page of the program's own, shown in place of a page that cannot be shown. theBody is HTML.
QString NoticePage(const Text &theTitle, const QString &theHeading, const QString &theBody);
