// The page view of a screen with a browser. Builds with QtWebEngine use a real browser (WebPages); others use a simple
// view (TextPages), which shows the program's own pages well.
#pragma once
#include "desktop/PageRules.h"
#include "toolkit/Controls.h"
#include <QUrl>
#include <QWidget>
#include <memory>

class QPrinter;

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
    virtual bool CanGoBack() const = 0;
    virtual bool CanGoForward() const = 0;
    // Marks the next place of a text on the page, or the one before; the signal Found follows. An empty text removes
    // the mark.
    virtual void Find(const QString &theText, bool isBackward) = 0;
    // Whether a web browser shows more of a page than this view.
    virtual bool IsPlain() const { return false; }
    // Opens the page that is showing in the user's web browser.
    void OpenInBrowser();
    // The size of the page in percent.
    int Zoom() const { return zoom; }
    void SetZoom(int thePercent);
    virtual void Print(const std::shared_ptr<QPrinter> &thePrinter) = 0;

    // How many places Found reports while nothing is searched for.
    static constexpr int noPlaces = -1;

signals:
    void Found(int thePlace, int thePlaces);
    // What CanGoBack and CanGoForward return may have changed.
    void HistoryChanged();

protected:
    Pages(Browser &theBrowser, QWidget *theParent);

    virtual void Load(const QUrl &theUrl) = 0;
    virtual void ApplyZoom() = 0;
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
    // Asks from the event loop whether to open an address that leads out, and opens it then: a page of the web in the
    // view, any other in the program that is meant for it.
    void AskToOpen(const QUrl &theUrl);
    // Says in the status bar that a page may not go to another place.
    void ShowRefused(const PageRules::Step &theStep);
    const Text &Address() const { return browser.NowAddress; }
    // The status text, and the notice page, for a file of a kind that the view cannot show.
    Text CannotShow() const;
    QString CannotShowPage(const QUrl &theUrl) const;

private:
    Browser &browser;
    QUrl requested;
    Text status;
    bool hasOpened = false;
    bool isAsking = false;
    int zoom = 100;
};

// A page of the program's own, shown in place of a page that cannot be shown. theBody is HTML.
QString NoticePage(const Text &theTitle, const QString &theHeading, const QString &theBody);
