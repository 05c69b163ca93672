// Addresses of the program and URLs of the host, and what both kinds of page view tell the program alike.
#include "desktop/Pages.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "toolkit/Gates.h"
#include "toolkit/Presentation.h"
#include <QTimer>
#include <algorithm>
#include <utility>

// By bytes, not letters: a name on the disk need not be valid UTF-8.
QUrl UrlOf(const Text &theAddress)
{
    if (theAddress.size() < 2 || theAddress[1] != ':')
        return QUrl(ToQString(theAddress));
    Text path = Files::ToHost(theAddress);
    if (path.empty()) {
        // A drive that isn't there keeps its letter, so that the user reads the name of what can't be found.
        path = '/' + Paths::Normalize(theAddress);
        std::replace(path.begin(), path.end(), '\\', '/');
    }
    return QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/:"));
}

Text AddressOf(const QUrl &theUrl)
{
    if (const QUrl file = UrlOfDriveLink(theUrl); !file.isEmpty())
        return AddressOf(file);
    if (!theUrl.isLocalFile())
        return FromQString(theUrl.toString(QUrl::FullyEncoded));
    Text path = QByteArray::fromPercentEncoding(theUrl.path(QUrl::FullyEncoded).toLatin1()).toStdString();
    const bool hasDrive = path.size() > 3 && path[2] == ':' && path[3] == '/';
    if (!hasDrive)
        return Paths::FromHost(path);
    std::replace(path.begin(), path.end(), '/', '\\');
    return path.substr(1);
}

QUrl UrlOfDriveLink(const QUrl &theUrl)
{
    if (theUrl.scheme().size() != 1)
        return {};
    // Whole and unencoded: "#" and "?" are letters of a file's name here.
    return UrlOf(QByteArray::fromPercentEncoding(theUrl.toString(QUrl::FullyEncoded).toLatin1()).toStdString());
}

bool IsPage(const QUrl &theUrl)
{
    return theUrl.isLocalFile() || theUrl.scheme() == QLatin1String("http") ||
           theUrl.scheme() == QLatin1String("https");
}

Text NameOf(const Text &theAddress)
{
    return theAddress.substr(theAddress.find_last_of('\\') + 1);
}

// Tables and plain rules only: the simple view must be able to show it too.
QString NoticePage(const Text &theTitle, const QString &theHeading, const QString &theBody)
{
    return QStringLiteral(
        "<html><head><title>%1</title><style>"
        "body{background-color:#fbfaf6;color:#20302c;font-family:Inter,sans-serif;font-size:15px}"
        "h1{color:#123f38;font-size:22px}a{color:#1f6b55}"
        "</style></head><body><table cellpadding=\"32\"><tr><td><h1>%2</h1>%3</td></tr></table></body></html>")
        .arg(ToQString(theTitle).toHtmlEscaped(), theHeading, theBody);
}

Pages::Pages(Browser &theBrowser, QWidget *theParent) : QObject(theParent), browser(theBrowser) {}

void Pages::Open(const QUrl &theUrl)
{
    const QUrl file = UrlOfDriveLink(theUrl);
    wanted = file.isEmpty() ? theUrl : file;
    QTimer::singleShot(0, this, [this] {
        if (wanted.isEmpty())
            return;
        if (!std::exchange(hasOpened, true))
            View()->setFocus();
        Load(std::exchange(wanted, {}));
    });
}

bool Pages::BeforeNavigate(const QUrl &theUrl)
{
    PendingWrites::Flush();
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
    return "This kind of file can't be shown here: " + NameOf(Address());
}

QString Pages::CannotShowPage(const QUrl &theUrl) const
{
    const Text address = AddressOf(theUrl);
    return NoticePage(NameOf(address), QStringLiteral("This kind of file can't be shown here"),
        QStringLiteral("<p>%1</p>").arg(ToQString(address).toHtmlEscaped()));
}
