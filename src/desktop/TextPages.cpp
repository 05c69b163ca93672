#include "desktop/TextPages.h"
#include "base/Failure.h"
#include "desktop/Addresses.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include <QDesktopServices>
#include <QImageReader>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringDecoder>
#include <utility>

TextPages::TextPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new QTextBrowser(theParent))
{
    view->setOpenLinks(false);
    view->setFrameShape(QFrame::NoFrame);
    connect(view, &QTextBrowser::anchorClicked, this, &TextPages::Follow);
    connect(view, &QTextBrowser::highlighted, this, [this](const QUrl &theLink) { ShowLink(Resolve(theLink)); });
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
    if (places.empty() || CurrentUrl() != theUrl) {
        places.resize(places.empty() ? 0 : at + 1);
        at = places.size();
        places.push_back({theUrl});
    }
    if (isSamePage)
        ShowStatus("Done");
    else
        Show(theUrl);
    const QString anchor = theUrl.fragment(QUrl::FullyDecoded);
    // Browsers go to the top for "#top" even if the page has no such anchor.
    if (anchor.isEmpty() || anchor == QLatin1String("top"))
        view->verticalScrollBar()->setValue(0);
    view->scrollToAnchor(anchor);
}

bool TextPages::GoTo(std::size_t thePlace, bool mustRead)
{
    CancelOpen();
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
        Show(CurrentUrl());
    // Asking for the size makes Qt lay out the whole page, so that the scroll position is valid.
    view->document()->size();
    view->verticalScrollBar()->setValue(places[at].Scroll);
    return true;
}

// Like browsers, treats a "\" in the path as a "/".
QUrl TextPages::Resolve(const QUrl &theLink) const
{
    QUrl link = theLink;
    link.setPath(link.path(QUrl::FullyEncoded).replace(QStringLiteral("%5C"), QStringLiteral("/")), QUrl::TolerantMode);
    return theLink.isEmpty() ? theLink : CurrentUrl().resolved(link);
}

void TextPages::Follow(const QUrl &theLink)
{
    const QUrl url = Resolve(theLink);
    // The notice page for a web address links to that address; that link opens the user's web browser.
    const bool isOwnAddress = !url.isLocalFile() && url == CurrentUrl();
    if (!isOwnAddress && (IsPage(url) || !UrlOfDriveLink(url).isEmpty()))
        Open(url);
    else if (url.scheme() != QLatin1String("javascript") && !QDesktopServices::openUrl(url))
        ShowStatus("No program on this computer can open " + AddressOf(url));
}

void TextPages::Show(const QUrl &theUrl)
{
    // setHtml loads the pictures of the page, so the base URL must be set before it.
    view->document()->setBaseUrl(theUrl);
    const Text result = ShowFile(theUrl);
    ShowTitle(view->documentTitle());
    ShowStatus(result + std::exchange(introduction, ""));
}

// Uses the encoding that the page declares; without a valid one, decodes it like the program's other texts.
static QString Decoded(const Text &theBytes)
{
    const QByteArrayView bytes(theBytes.data(), static_cast<qsizetype>(theBytes.size()));
    QStringDecoder decode = QStringDecoder::decoderForHtml(bytes);
    const QString Result = decode(bytes);
    return decode.isValid() && !decode.hasError() ? Result : ToQString(theBytes);
}

// QTextBrowser would take a "<" in a script for a tag.
static QString WithoutScripts(QString thePage)
{
    static const QRegularExpression script(QStringLiteral("<script\\b.*?</script\\s*>"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return thePage.remove(script);
}

// Returns the status text.
Text TextPages::ShowFile(const QUrl &theUrl)
{
    const auto show = [&](const char *theHeading, const char *theBody) {
        view->setHtml(NoticePage(NameOf(Address()), QString::fromLatin1(theHeading),
            QString::fromLatin1(theBody).arg(ToQString(Address()).toHtmlEscaped())));
        return "Could not open " + Address();
    };
    if (!theUrl.isLocalFile())
        return show("This page is on the web", "<p>The simple view shows only pages on this computer.</p>"
                                               "<p>Open it in your web browser: <a href=\"%1\">%1</a></p>");
    Text bytes;
    try {
        // Tested first: a page that isn't there is told here, and is no loss.
        if (!Files::IsFile(Address()))
            Fail("file not found", Address());
        bytes = Files::Read(Address());
    } catch (const RuntimeFailure &) {
        return show("This page cannot be opened", "<p>It may have been moved, renamed or deleted:</p><p>%1</p>");
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
