#include "desktop/Pages.h"
#include "desktop/Addresses.h"
#include "desktop/QtText.h"
#include "toolkit/Gates.h"
#include <QTimer>
#include <utility>
#ifdef FERNCASTLE_WEBENGINE
#include "desktop/WebPages.h"
#else
#include "desktop/TextPages.h"
#endif

// Uses only tables and simple style rules, which QTextBrowser can show too.
QString NoticePage(const Text &theTitle, const QString &theHeading, const QString &theBody)
{
    return QStringLiteral(
        "<html><head><title>%1</title><style>"
        "body{background-color:#fbfaf6;color:#20302c;font-family:Inter,sans-serif;font-size:15px}"
        "h1{color:#123f38;font-size:22px}a{color:#1f6b55}"
        "</style></head><body><table cellpadding=\"32\"><tr><td><h1>%2</h1>%3</td></tr></table></body></html>")
        .arg(ToQString(theTitle).toHtmlEscaped(), theHeading, theBody);
}

Pages *Pages::Make(Browser &theBrowser, QWidget *theParent)
{
#ifdef FERNCASTLE_WEBENGINE
    return new WebPages(theBrowser, theParent);
#else
    return new TextPages(theBrowser, theParent);
#endif
}

Pages::Pages(Browser &theBrowser, QWidget *theParent) : QObject(theParent), browser(theBrowser) {}

void Pages::Open(const QUrl &theUrl)
{
    const QUrl file = UrlOfDriveLink(theUrl);
    requested = file.isEmpty() ? theUrl : file;
    QTimer::singleShot(0, this, [this] {
        if (requested.isEmpty())
            return;
        if (!std::exchange(hasOpened, true))
            View()->setFocus();
        Load(std::exchange(requested, {}));
    });
}

bool Pages::BeforeNavigate(const QUrl &theUrl)
{
    const Text address = AddressOf(theUrl);
    if (!BrowserGoes(browser, address))
        return false;
    browser.NowAddress = address;
    ShowStatus("Opening " + address);
    return true;
}

void Pages::ShowTitle(const QString &theTitle)
{
    BrowserTitled(browser, theTitle.isEmpty() ? NameOf(Address()) : FromQString(theTitle));
}

void Pages::ShowStatus(const Text &theStatus)
{
    status = theStatus;
    BrowserSays(browser, status);
}

void Pages::ShowLink(const QUrl &theLink)
{
    BrowserSays(browser, theLink.isEmpty() ? status : AddressOf(theLink));
}

Text Pages::CannotShow() const
{
    return "This kind of file cannot be shown here: " + NameOf(Address());
}

QString Pages::CannotShowPage(const QUrl &theUrl) const
{
    const Text address = AddressOf(theUrl);
    return NoticePage(NameOf(address), QStringLiteral("This kind of file cannot be shown here"),
        QStringLiteral("<p>%1</p>").arg(ToQString(address).toHtmlEscaped()));
}
