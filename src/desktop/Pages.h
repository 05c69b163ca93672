// The page view of a screen with a browser: a real browser where one is built in, else a simple view that shows the
// program's own pages well.
#pragma once
#include "toolkit/Controls.h"
#include <QUrl>
#include <QWidget>

// One view for one Browser control. It calls the gates BrowserGoes, BrowserSays and BrowserTitled itself and keeps the
// control's NowAddress.
class Pages : public QObject
{
    Q_OBJECT
public:
    // Makes the view as a child of theParent; the widget is View(), and it goes with theParent. To be called before
    // the window shows: a window that shows already may be made anew for a browser, which flickers and loses the focus.
    static Pages *Make(Browser &theBrowser, QWidget *theParent);
    virtual QWidget *View() = 0;
    // Loads from the event loop, and of several at once only the last. Takes drive links too. The first page that is
    // opened takes the keyboard's focus.
    void Open(const QUrl &theUrl);
    // False when there is no page to go back or forward to.
    virtual bool Back() = 0;
    virtual bool Forward() = 0;
    virtual void Reload() = 0;
    virtual void Stop() = 0;

protected:
    Pages(Browser &theBrowser, QWidget *theParent);

    virtual void Load(const QUrl &theUrl) = 0;
    // Drops what Open still holds.
    void Forget() { wanted.clear(); }
    // Called before each navigation. False when it must not take place.
    bool BeforeNavigate(const QUrl &theUrl);
    // Tells a page's title; a page without one is called by its file.
    void ShowTitle(const QString &theTitle);
    // What the status bar says while nothing is pointed at.
    void ShowStatus(const Text &theStatus);
    // The user points at a link; an empty one when no longer.
    void ShowLink(const QUrl &theLink);
    const Text &Address() const { return browser.NowAddress; }
    // The status, and the page, for a file of a kind that no view can show.
    Text CannotShow() const;
    QString CannotShowPage(const QUrl &theUrl) const;

private:
    Browser &browser;
    QUrl wanted;
    Text status;
    bool hasOpened = false;
};

// An address of the program, x:\dir\page.html or http://..., as a URL of the host.
QUrl UrlOf(const Text &theAddress);
// A URL as the program writes it: x:\dir\page.html for a file, without a place on its page, else the URL itself.
Text AddressOf(const QUrl &theUrl);
// What a link of the form x:\dir\page.html comes in as, a URL whose scheme is a drive's letter, as the file it means;
// an empty URL for any other.
QUrl UrlOfDriveLink(const QUrl &theUrl);
// Whether theUrl leads to a page, and not to a mail program, a script or a drive.
bool IsPage(const QUrl &theUrl);
// The last part of an address of the program: a file's name, or all of a web address.
Text NameOf(const Text &theAddress);
// A page of the program's own in place of one that can't be shown. theBody is HTML.
QString NoticePage(const Text &theTitle, const QString &theHeading, const QString &theBody);
