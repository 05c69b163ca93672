#include "desktop/SupportPage.h"
#include "base/Failure.h"
#include "core/FileHandle.h"
#include "core/Support.h"
#include "desktop/Pages.h"
#include "desktop/QtText.h"
#include "disk/Files.h"

namespace SupportPage
{
bool IsSupport(const QUrl &theUrl)
{
    const QUrl site(QString::fromLatin1(SupportSite));
    return theUrl.scheme() == site.scheme() && theUrl.host() == site.host() && theUrl.port() == site.port();
}

static QString Template(const QString &theAddress)
{
    const Text file = InProgramDir("share\\support.html");
    try {
        if (Files::IsFile(file))
            return ToQString(Files::Read(file));
    } catch (const RuntimeFailure &) {
        // The short page below does without the file.
    }
    return NoticePage(FromQString(theAddress), QStringLiteral("Help is not available here"),
        QStringLiteral("<p><*why*></p><p><a href=\"<*address*>\"><*address*></a></p>"
                       "<p>Write to <a href=\"mailto:<*mail*>\"><*mail*></a>.</p>"));
}

QString InPlaceOf(const QUrl &theUrl, const QString &theWhy)
{
    const QString address = theUrl.toString(QUrl::FullyEncoded).toHtmlEscaped();
    return Template(address)
        .replace(QStringLiteral("<*why*>"), theWhy)
        .replace(QStringLiteral("<*mail*>"), QString::fromLatin1(SupportMail).toHtmlEscaped())
        .replace(QStringLiteral("<*address*>"), address);
}
}  // namespace SupportPage
