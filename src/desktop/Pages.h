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
    using QObject::QObject;
    // Makes the view as a child of theParent; the widget is View(), and it goes with theParent.
    static Pages *Make(Browser &theBrowser, QWidget *theParent);
    // Words for the name of what is built in: "QtWebEngine", "QTextBrowser".
    static const char *Kind();
    virtual QWidget *View() = 0;
    virtual void Open(const QUrl &theUrl) = 0;
    // False when there is no page to go back or forward to.
    virtual bool Back() = 0;
    virtual bool Forward() = 0;
    virtual void Reload() = 0;
    virtual void Stop() = 0;
};

// An address of the program, x:\dir\page.html or http://..., as a URL of the host.
QUrl UrlOf(const Text &theAddress);
// A URL as the program writes it: x:\dir\page.html for a file, else the URL itself.
Text AddressOf(const QUrl &theUrl);
// What a link of the form x:\dir\page.html comes in as, a URL whose scheme is a drive's letter, as the file it means;
// an empty URL for any other.
QUrl UrlOfDriveLink(const QUrl &theUrl);
