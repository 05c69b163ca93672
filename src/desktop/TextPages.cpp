#include "desktop/TextPages.h"
#include "base/Failure.h"
#include "desktop/Addresses.h"
#include "desktop/QtText.h"
#include "desktop/SupportPage.h"
#include "desktop/Theme.h"
#include "disk/Files.h"
#include <QDesktopServices>
#include <QImageReader>
#include <QMimeDatabase>
#include <QPrinter>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTextBlock>
#include <utility>

// Loads the pictures and style sheets of a page as far as they are files that it may load.
class PageText final : public QTextBrowser
{
public:
    using QTextBrowser::QTextBrowser;

protected:
    QVariant loadResource(int theKind, const QUrl &theUrl) override
    {
        const QUrl page = document()->baseUrl();
        const bool mayLoad = PageRules::MayLoad(page.resolved(theUrl), page, PageRules::Use::Part);
        return mayLoad ? QTextBrowser::loadResource(theKind, theUrl) : QVariant();
    }
};

TextPages::TextPages(Browser &theBrowser, QWidget *theParent)
    : Pages(theBrowser, theParent), view(new PageText(theParent))
{
    view->setOpenLinks(false);
    QPalette colours = view->palette();
    colours.setColor(QPalette::Base, Theme::Paper);
    view->setPalette(colours);
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
    if (isOwnAddress) {
        if (!QDesktopServices::openUrl(url))
            ShowStatus("No program on this computer can open " + AddressOf(url));
        return;
    }
    // There are no scripts here: each address is in the file of the page.
    const PageRules::Step step{.From = CurrentUrl(), .To = url, .HasClick = true};
    switch (PageRules::Judge(step, [] { return true; })) {
    case PageRules::Verdict::Allow:
    case PageRules::Verdict::Open:
        Open(url);
        break;
    case PageRules::Verdict::AskPage:
    case PageRules::Verdict::AskOther:
        AskToOpen(url);
        break;
    case PageRules::Verdict::Refuse:
        ShowRefused(step);
    }
}

void TextPages::Show(const QUrl &theUrl)
{
    // setHtml loads the pictures of the page, so the base URL must be set before it.
    view->document()->setBaseUrl(theUrl);
    const Text result = ShowFile(theUrl);
    ShowTitle(view->documentTitle());
    ShowStatus(result + std::exchange(introduction, ""));
    emit HistoryChanged();
}

void TextPages::ApplyZoom()
{
    QFont font = Theme::FontOf(TextStyle::Body);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * Zoom() / 100);
    view->setFont(font);
    GoTo(at, true);
}

// The view enlarges only texts whose size the page leaves open, so the sizes in the page are multiplied here.
void TextPages::SetPage(const QString &thePage)
{
    static const QRegularExpression size(
        QStringLiteral("(font-size\\s*:\\s*)([0-9.]+)(?=p[xt])"), QRegularExpression::CaseInsensitiveOption);
    QString page;
    qsizetype end = 0;
    for (auto match = size.globalMatch(thePage); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        page +=
            thePage.mid(end, one.capturedStart(2) - end) + QString::number(one.captured(2).toDouble() * Zoom() / 100);
        end = one.capturedEnd(2);
    }
    view->setHtml(page + thePage.mid(end));
}

void TextPages::Find(const QString &theText, bool isBackward)
{
    QTextCursor place = view->textCursor();
    // A text that is still being typed may match where it did.
    if (std::exchange(found, theText) != theText)
        place.setPosition(place.selectionStart());
    if (theText.isEmpty()) {
        view->setTextCursor(place);
        return emit Found(0, noPlaces);
    }
    const auto direction = isBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    QTextDocument &text = *view->document();
    QTextCursor next = text.find(theText, place, direction);
    if (next.isNull())
        next = text.find(theText, isBackward ? text.characterCount() - 1 : 0, direction);
    int number = 0, all = 0;
    for (QTextCursor one = text.find(theText); !one.isNull(); one = text.find(theText, one)) {
        ++all;
        if (one.selectionStart() <= next.selectionStart())
            number = all;
    }
    if (!next.isNull())
        view->setTextCursor(next);
    emit Found(number, all);
}

void TextPages::Print(const std::shared_ptr<QPrinter> &thePrinter)
{
    view->print(thePrinter.get());
    ShowStatus(thePrinter->outputFormat() == QPrinter::PdfFormat ? "Saved: " + FromQString(thePrinter->outputFileName())
                                                                 : "Printed");
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
        SetPage(NoticePage(NameOf(Address()), QString::fromLatin1(theHeading),
            QString::fromLatin1(theBody).arg(ToQString(Address()).toHtmlEscaped())));
        return "Could not open " + Address();
    };
    if (SupportPage::IsSupport(theUrl)) {
        SetPage(SupportPage::InPlaceOf(theUrl, tr("The simple view shows only pages on this computer. A click on the "
                                                  "address opens the support site in your web browser.")));
        return "Could not open " + Address();
    }
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
        SetPage(CannotShowPage(theUrl));
        return CannotShow();
    } else if (kind.inherits(QStringLiteral("text/html")) || Qt::mightBeRichText(text))
        SetPage(WithoutScripts(text));
    else
        view->setHtml(QStringLiteral("<pre>%1</pre>").arg(text.toHtmlEscaped()));
    return "Done";
}
