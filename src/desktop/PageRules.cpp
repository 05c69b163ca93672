#include "desktop/PageRules.h"
#include "core/AppVars.h"
#include "desktop/Addresses.h"
#include "disk/Files.h"
#include "disk/Io.h"
#include "disk/Paths.h"

namespace PageRules
{
bool IsWeb(const QUrl &theUrl)
{
    return theUrl.scheme() == QLatin1String("http") || theUrl.scheme() == QLatin1String("https");
}

// What a page can make up itself: it can load nothing more than the page can.
static bool IsInline(const QUrl &theUrl)
{
    return theUrl.isEmpty() || theUrl.scheme() == QLatin1String("about") || theUrl.scheme() == QLatin1String("data") ||
           theUrl.scheme() == QLatin1String("blob") || theUrl.scheme() == QLatin1String("javascript");
}

// The browser's own pages: its view of PDF files is one, in a frame.
static bool IsOfBrowser(const QUrl &theUrl)
{
    return theUrl.scheme() == QLatin1String("chrome-extension") || theUrl.scheme() == QLatin1String("chrome");
}

// A file on another computer is none of this one: asking for it would tell that computer the name.
static bool IsFileHere(const QUrl &theUrl)
{
    return theUrl.isLocalFile() && theUrl.host().isEmpty();
}

static bool IsBelow(const Text &thePath, const Text &theDir)
{
    const Text dir = Io::RealPath(theDir);
    return !dir.empty() && (thePath + "/").starts_with(dir.ends_with("/") ? dir : dir + "/");
}

bool IsOurFile(const QUrl &theUrl)
{
    if (!IsFileHere(theUrl))
        return false;
    Text path = HostPathOf(theUrl);
    if (path.find('\0') != Text::npos || (path + "/").find("/../") != Text::npos)
        return false;
    Text real;
    while ((real = Io::RealPath(path.empty() ? "/" : path)).empty() && path.find('/') != Text::npos)
        path.erase(path.find_last_of('/'));
    return !real.empty() && (IsBelow(real, Paths::ProgramHostDir().empty() ? "/" : Paths::ProgramHostDir()) ||
                                (!LocalSiteDir.empty() && IsBelow(real, Files::ToHost(LocalSiteDir))));
}

bool MayLoad(const QUrl &theUrl, const QUrl &thePage, Use theUse)
{
    if (IsInline(theUrl) || IsOfBrowser(theUrl))
        return true;
    if (IsWeb(thePage))
        return !theUrl.isLocalFile();
    return theUse == Use::Part && IsOurFile(theUrl);
}

// Where a page from the web may lead.
static Verdict JudgeFromWeb(const Step &theStep)
{
    if (theStep.To.isLocalFile() || !UrlOfDriveLink(theStep.To).isEmpty())
        return Verdict::Refuse;
    if (theStep.IsFrame && (IsWeb(theStep.To) || IsInline(theStep.To) || IsOfBrowser(theStep.To)))
        return Verdict::Allow;
    if (IsWeb(theStep.To)) {
        const bool isSameSite = theStep.To.host() == theStep.From.host();
        return isSameSite || theStep.IsRedirect || theStep.HasClick ? Verdict::Allow : Verdict::Refuse;
    }
    return theStep.HasClick && !IsInline(theStep.To) ? Verdict::AskOther : Verdict::Refuse;
}

Verdict Judge(const Step &theStep, const std::function<bool()> &inFile)
{
    if (IsWeb(theStep.From))
        return JudgeFromWeb(theStep);
    if (const QUrl file = UrlOfDriveLink(theStep.To); !file.isEmpty())
        return !theStep.IsFrame && (theStep.HasClick || IsOurFile(file)) ? Verdict::Open : Verdict::Refuse;
    if (theStep.To.isLocalFile()) {
        const bool mayGo = IsOurFile(theStep.To) || (theStep.HasClick && !theStep.IsFrame && IsFileHere(theStep.To));
        return mayGo ? Verdict::Allow : Verdict::Refuse;
    }
    if (IsInline(theStep.To) || IsOfBrowser(theStep.To))
        return theStep.IsFrame ? Verdict::Allow : Verdict::Refuse;
    if (!theStep.HasClick || theStep.IsForm)
        return Verdict::Refuse;
    if (!IsWeb(theStep.To))
        return Verdict::AskOther;
    return inFile() ? Verdict::Open : Verdict::AskPage;
}
}  // namespace PageRules
