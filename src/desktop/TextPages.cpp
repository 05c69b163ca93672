// The page view without a browser: shows the program's own pages, and simple others, from the disk.
#include "base/Failure.h"
#include "desktop/Pages.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include <QDesktopServices>
#include <QImageReader>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTextBrowser>
#include <utility>
#include <vector>

namespace
{
class TextPages final : public Pages
{
public:
    TextPages(Browser &theBrowser, QWidget *theParent);
    QWidget *View() override { return view; }
    // From the first place this wraps around, and is beyond the last.
    bool Back() override { return GoTo(at - 1); }
    bool Forward() override { return GoTo(at + 1); }
    void Reload() override { GoTo(at, true); }
    void Stop() override { Forget(); }

protected:
    void Load(const QUrl &theUrl) override;

private:
    struct Place {
        QUrl Url;
        int Scroll = 0;
    };
    QUrl Here() const { return places.empty() ? QUrl() : places[at].Url; }
    bool IsOnPage(const QUrl &theUrl) const { return Here().matches(theUrl, QUrl::RemoveFragment); }
    void KeepScroll();
    bool GoTo(std::size_t thePlace, bool mustRead = false);
    QUrl Meant(const QUrl &theLink) const;
    void Follow(const QUrl &theLink);
    void Show(const QUrl &theUrl);
    Text ShowFile(const QUrl &theUrl);

    QTextBrowser *const view;
    std::vector<Place> places;
    std::size_t at = 0;
    Text introduction = " (simple view: pages look plainer here than in a web browser)";
};

TextPages::TextPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new QTextBrowser(theParent))
{
    view->setOpenLinks(false);
    view->setFrameShape(QFrame::NoFrame);
    connect(view, &QTextBrowser::anchorClicked, this, &TextPages::Follow);
    connect(view, &QTextBrowser::highlighted, this, [this](const QUrl &theLink) { ShowLink(Meant(theLink)); });
}

void TextPages::KeepScroll()
{
    if (!places.empty())
        places[at].Scroll = view->verticalScrollBar()->value();
}

void TextPages::Load(const QUrl &theUrl)
{
    if (!BeforeNavigate(theUrl))
        return;
    KeepScroll();
    const bool isSamePage = theUrl.hasFragment() && IsOnPage(theUrl);
    if (places.empty() || Here() != theUrl) {
        places.resize(places.empty() ? 0 : at + 1);
        at = places.size();
        places.push_back({theUrl});
    }
    if (isSamePage)
        ShowStatus("Done");
    else
        Show(theUrl);
    const QString anchor = theUrl.fragment(QUrl::FullyDecoded);
    // The top of a page needs no anchor there.
    if (anchor.isEmpty() || anchor == QLatin1String("top"))
        view->verticalScrollBar()->setValue(0);
    view->scrollToAnchor(anchor);
}

bool TextPages::GoTo(std::size_t thePlace, bool mustRead)
{
    Forget();
    if (thePlace >= places.size())
        return false;
    if (!BeforeNavigate(places[thePlace].Url))
        return true;
    KeepScroll();
    const bool isSamePage = !mustRead && IsOnPage(places[thePlace].Url);
    at = thePlace;
    if (isSamePage)
        ShowStatus("Done");
    else
        Show(Here());
    // Asking for the size has the page laid out to its end.
    view->document()->size();
    view->verticalScrollBar()->setValue(places[at].Scroll);
    return true;
}

// As browsers understand it: a "\" in the path of a page is a "/".
QUrl TextPages::Meant(const QUrl &theLink) const
{
    QUrl link = theLink;
    link.setPath(link.path(QUrl::FullyEncoded).replace(QStringLiteral("%5C"), QStringLiteral("/")), QUrl::TolerantMode);
    return theLink.isEmpty() ? theLink : Here().resolved(link);
}

void TextPages::Follow(const QUrl &theLink)
{
    const QUrl url = Meant(theLink);
    // The page that stands for a web address offers that address.
    const bool isOffer = !url.isLocalFile() && url == Here();
    if (!isOffer && (IsPage(url) || !UrlOfDriveLink(url).isEmpty()))
        Open(url);
    else if (url.scheme() != QLatin1String("javascript") && !QDesktopServices::openUrl(url))
        ShowStatus("There is no program here that opens " + AddressOf(url));
}

void TextPages::Show(const QUrl &theUrl)
{
    // Pictures beside the page are asked for while its text is set.
    view->document()->setBaseUrl(theUrl);
    const Text said = ShowFile(theUrl);
    ShowTitle(view->documentTitle());
    ShowStatus(said + std::exchange(introduction, ""));
}

// By what the page says of itself; else as all texts of the program are shown.
QString Decoded(const Text &theBytes)
{
    const QByteArrayView bytes(theBytes.data(), static_cast<qsizetype>(theBytes.size()));
    QStringDecoder decode = QStringDecoder::decoderForHtml(bytes);
    const QString Result = decode(bytes);
    return decode.isValid() && !decode.hasError() ? Result : ToQString(theBytes);
}

// A "<" in a script would swallow what follows.
QString WithoutScripts(QString thePage)
{
    static const QRegularExpression script(QStringLiteral("<script\\b.*?</script\\s*>"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return thePage.remove(script);
}

// Returns what is to be said of it.
Text TextPages::ShowFile(const QUrl &theUrl)
{
    const auto show = [&](const char *theHeading, const char *theBody) {
        view->setHtml(NoticePage(NameOf(Address()), QString::fromLatin1(theHeading),
            QString::fromLatin1(theBody).arg(ToQString(Address()).toHtmlEscaped())));
        return "Could not open " + Address();
    };
    if (!theUrl.isLocalFile())
        return show("This page is on the web", "<p>The simple view shows pages on this computer only.</p>"
                                               "<p>Open it in your web browser: <a href=\"%1\">%1</a></p>");
    Text bytes;
    try {
        bytes = Files::Read(Address());
    } catch (const RuntimeFailure &) {
        return show("This page can't be opened", "<p>It may have been moved, renamed or deleted:</p><p>%1</p>");
    }
    const QString name = ToQString(NameOf(Address()));
    const QMimeType kind = QMimeDatabase().mimeTypeForFileNameAndData(name, QByteArray::fromStdString(bytes));
    const bool isText = bytes.empty() || kind.inherits(QStringLiteral("text/plain"));
    const QString text = isText ? Decoded(bytes) : QString();
    if (QImageReader::supportedMimeTypes().contains(kind.name().toLatin1()))
        view->setHtml(QStringLiteral("<img src=\"%1\">").arg(theUrl.toString(QUrl::FullyEncoded)));
    else if (!isText || kind.name().startsWith(QLatin1String("image/"))) {
        view->setHtml(CannotShowPage(theUrl));
        return CannotShow();
    } else if (kind.inherits(QStringLiteral("text/html")) || Qt::mightBeRichText(text))
        view->setHtml(WithoutScripts(text));
    else
        view->setHtml(QStringLiteral("<pre>%1</pre>").arg(text.toHtmlEscaped()));
    return "Done";
}
}  // namespace

Pages *Pages::Make(Browser &theBrowser, QWidget *theParent)
{
    return new TextPages(theBrowser, theParent);
}
