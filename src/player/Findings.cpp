#include "player/Findings.h"
#include "core/KeywordList.h"
#include "core/TextOps.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "player/RunOptions.h"
#include <algorithm>
#include <map>

Text Finding::Place() const
{
    const Text line = Line > 0 ? ':' + std::to_string(Line) : Text();
    return File.empty() ? What : File + line + ": " + What;
}

Text Finding::AsLine() const
{
    Text Result = (IsError ? "error: " : "warning: ") + Place();
    for (char &c : Result)
        if (static_cast<unsigned char>(c) < ' ')
            c = ' ';
    return Result;
}

// Whether the error tells all that the warning tells. What ends a run may have been noted as a failed operation too.
static bool Covers(const Finding &theError, const Finding &theWarning)
{
    return theError.IsError && !theWarning.IsError && theError.File == theWarning.File &&
           theError.Line == theWarning.Line && theError.What.ends_with(theWarning.What);
}

void Findings::Add(const Finding &theFinding)
{
    if (!known.insert(theFinding.AsLine()).second)
        return;
    std::erase_if(all, [&](const Finding &one) { return Covers(theFinding, one); });
    if (std::none_of(all.begin(), all.end(), [&](const Finding &one) { return Covers(one, theFinding); }))
        all.push_back(theFinding);
}

std::int64_t Findings::Errors() const
{
    return std::count_if(all.begin(), all.end(), [](const Finding &one) { return one.IsError; });
}

std::int64_t LineAt(const Text &theText, std::int64_t thePosition)
{
    const auto end = theText.begin() + std::clamp<std::int64_t>(thePosition - 1, 0, Len(theText));
    const char lineEnd = theText.find('\n') == Text::npos ? '\r' : '\n';
    return 1 + std::count(theText.begin(), end, lineEnd);
}

Text KeywordFile(const RunOptions &theOptions)
{
    const Text &project = theOptions.Project;
    return theOptions.Keywords.empty() ? Paths::ProgramHostDir() + '/' + project + "_store/" + project + ".key"
                                       : theOptions.Keywords;
}

// Whether theWord holds a "%" that begins an escape, as it would be read in an address.
static bool HoldsEscape(const Text &theWord)
{
    static const char *const digits = "0123456789abcdefABCDEF";
    for (std::size_t at = 0; (at = theWord.find('%', at)) != Text::npos; ++at)
        if (at + 2 < theWord.size() && theWord.find_first_of(digits, at + 1) == at + 1 &&
            theWord.find_first_of(digits, at + 2) == at + 2)
            return true;
    return false;
}

void CheckKeywords(const RunOptions &theOptions, Findings &theFindings)
{
    const Text file = KeywordFile(theOptions);
    if (const Text wrong = TooFewKeywords(theOptions); !wrong.empty())
        theFindings.Add({true, file, 0, wrong});
    std::map<Text, std::int64_t> firstLines;
    for (const auto &[line, word] : theOptions.KeywordRows) {
        const auto [first, isNew] = firstLines.try_emplace(LowerText(word), line);
        if (!isNew)
            theFindings.Add({false, file, line,
                Text("the keyword \"") + word + "\" stands in line " + std::to_string(first->second) + " already"});
        if (word.find_first_of("/\\:*?\"<>|\r\n") != Text::npos)
            theFindings.Add({false, file, line,
                Text("the keyword \"") + word + "\" holds a character that file names should not hold"});
        // The program writes a name into a link as it is.
        if (theOptions.UsesQuillmark)
            continue;
        if (const std::size_t at = word.find_first_of("#?"); at != Text::npos)
            theFindings.Add({false, file, line,
                Text("the keyword \"") + word + "\" holds " + word[at] +
                    ": a browser reads a link only up to there, so no link to such a page works"});
        if (word.find('%') != Text::npos)
            theFindings.Add({false, file, line,
                Text("the keyword \"") + word +
                    (HoldsEscape(word) ? "\" holds % and two digits: a browser takes them for another character, so no "
                                         "link to such a page works"
                                       : "\" holds %: some servers refuse a link with a single %")});
    }
}

// A path with all links followed and a slash at its end.
static Text Closed(const Text &thePath)
{
    const Text path = Io::RealPath(thePath.empty() ? "/" : thePath);
    return path.ends_with('/') ? path : path + '/';
}

bool CheckPlace(const RunOptions &theOptions, Findings &theFindings)
{
    const Text site = Closed(theOptions.Site), program = Closed(Paths::ProgramHostDir());
    const bool holdsIt = program.starts_with(site);
    const Text newSite = Paths::ProgramHostDir() + '/' + theOptions.Project;
    // A user may have removed the new site to get one without the pages of earlier runs.
    const bool isInIt =
        !theOptions.Project.empty() && Io::KindOf(newSite) == Io::Kind::Directory && site.starts_with(Closed(newSite));
    if (holdsIt)
        theFindings.Add({true, theOptions.Site, 0,
            "the site holds the program directory " + Paths::ProgramHostDir() + ", and so its own new site"});
    else if (isInIt)
        theFindings.Add({true, theOptions.Site, 0, "the site is in the new site of project " + theOptions.Project});
    const Text wrong = WhyNotWritable(theOptions);
    if (!wrong.empty())
        theFindings.Add({true, {}, 0, wrong});
    return !holdsIt && !isInIt && wrong.empty();
}
