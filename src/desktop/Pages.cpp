#include "desktop/Pages.h"
#include "desktop/Addresses.h"
#include "desktop/Boxes.h"
#include "desktop/QtText.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <QDesktopServices>
#include <QPointer>
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

void Pages::OpenInBrowser()
{
    if (Address().empty() || !QDesktopServices::openUrl(UrlOf(Address())))
        ShowStatus("No program on this computer can open " + Address());
}

void Pages::SetZoom(int thePercent)
{
    zoom = thePercent;
    ApplyZoom();
    ShowStatus("Zoom: " + std::to_string(zoom) + " %");
}

bool Pages::BeforeNavigate(const QUrl &theUrl)
{
    const Text address = AddressOf(theUrl);
    if (!BrowserGoes(browser, address))
        return false;
    browser.NowAddress = address;
    emit Found(0, noPlaces);
    ShowStatus("Opening " + address);
    return true;
}

// The user must be able to read all of an address that may contain more than it seems.
static constexpr qsizetype longestAddress = 1000;

static Text InLines(const Text &theAddress)
{
    Text Result;
    for (std::size_t at = 0; at < theAddress.size(); at += 80)
        Result += theAddress.substr(at, 80) + "\n";
    return Result;
}

void Pages::AskToOpen(const QUrl &theUrl)
{
    const Text address = FromQString(theUrl.toString(QUrl::FullyEncoded));
    if (isAsking)
        return;
    if (address.size() > longestAddress)
        return ShowStatus("The address of this link is too long to be shown. It was not opened.");
    isAsking = true;
    QTimer::singleShot(0, this, [this, theUrl, address] {
        const QPointer<Pages> here = this;
        bool wantsNoMore = false;
        const Text question =
            IsPage(theUrl)
                ? "The page leads to an address that is not in its file, so that a script must have made it:\n\n" +
                      InLines(address) +
                      "\nIt may tell that site what the script has read on this computer. Open it all the same?"
                : "Another program is to open this address:\n\n" + InLines(address) + "\nDo you want that?";
        const int answer = Boxes::Ask(
            View()->window(), question, msgYesNo | msgThirdDefault | 48, DefaultBoxTitle, false, wantsNoMore);
        if (!here)
            return;
        isAsking = false;
        if (answer != answerYes)
            return ShowStatus("Not opened: " + address);
        if (IsPage(theUrl))
            Open(theUrl);
        else if (!QDesktopServices::openUrl(theUrl))
            ShowStatus("No program on this computer can open " + address);
    });
}

void Pages::ShowRefused(const PageRules::Step &theStep)
{
    if (theStep.IsForm)
        ShowStatus(
            "Forms of pages on this computer are not sent. To send this one, open the page in your web browser.");
    else
        ShowStatus("The page may not open this address: " + AddressOf(theStep.To));
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
