#include "desktop/PageLinks.h"
#include "base/Failure.h"
#include "desktop/Addresses.h"
#include "disk/Io.h"

static constexpr std::int64_t largestPage = 32 << 20;

static bool IsBlank(char theChar)
{
    return theChar == ' ' || theChar == '\t' || theChar == '\n' || theChar == '\r' || theChar == '\f';
}

// The value of the next attribute href at or after thePosition, which moves behind it; null at the end.
static QByteArray NextHref(const QByteArray &theText, const QByteArray &theLowerText, qsizetype &thePosition)
{
    while ((thePosition = theLowerText.indexOf("href", thePosition)) >= 0) {
        qsizetype at = thePosition += 4;
        const auto skipBlanks = [&] {
            while (at < theText.size() && IsBlank(theText[at]))
                ++at;
        };
        skipBlanks();
        if (at == theText.size() || theText[at] != '=')
            continue;
        ++at;
        skipBlanks();
        if (at == theText.size())
            break;
        const char quote = theText[at];
        const bool isQuoted = quote == '"' || quote == '\'';
        qsizetype end = at += isQuoted;
        while (
            end < theText.size() && (isQuoted ? theText[end] != quote : !IsBlank(theText[end]) && theText[end] != '>'))
            ++end;
        thePosition = end;
        return theText.mid(at, end - at);
    }
    return {};
}

// The URL that the value of an attribute means.
static QUrl UrlIn(QByteArray theValue)
{
    for (const auto &[entity, meaning] : std::initializer_list<std::pair<const char *, const char *>>{
             {"&quot;", "\""}, {"&#34;", "\""}, {"&#39;", "'"}, {"&#38;", "&"}, {"&amp;", "&"}})
        theValue.replace(entity, meaning);
    theValue.replace('\n', "").replace('\r', "").replace('\t', "");
    return QUrl(QString::fromUtf8(theValue.trimmed()));
}

// The same for all spellings of a URL between which browsers make no difference.
static QByteArray Canonical(QUrl theUrl)
{
    if (theUrl.path().isEmpty() && !theUrl.host().isEmpty())
        theUrl.setPath(QStringLiteral("/"));
    if (theUrl.port() == (theUrl.scheme() == QLatin1String("https") ? 443 : 80))
        theUrl.setPort(-1);
    return QByteArray::fromPercentEncoding(theUrl.toEncoded(QUrl::NormalizePathSegments));
}

QUrl LinkInText(const QByteArray &theText, const QUrl &thePage, const QUrl &theAddress)
{
    const QByteArray lower = theText.toLower(), wanted = Canonical(theAddress);
    QUrl base = thePage;
    if (qsizetype position = lower.indexOf("<base"); position >= 0)
        base = thePage.resolved(UrlIn(NextHref(theText, lower, position)));
    for (qsizetype position = 0; position >= 0;)
        if (const QByteArray value = NextHref(theText, lower, position); position >= 0)
            if (const QUrl link = base.resolved(UrlIn(value)); Canonical(link) == wanted)
                return link;
    return {};
}

QUrl LinkInFile(const QUrl &thePage, const QUrl &theAddress)
{
    const Text file = HostPathOf(thePage);
    if (!thePage.isLocalFile() || Io::KindOf(file) != Io::Kind::File || Io::LookAtFile(file).Size > largestPage)
        return {};
    try {
        return LinkInText(QByteArray::fromStdString(Io::Read(file)), thePage, theAddress);
    } catch (const RuntimeFailure &) {
        return {};
    }
}
