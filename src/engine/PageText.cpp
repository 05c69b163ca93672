#include "engine/PageText.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include <cstring>
#include <string_view>
#include <vector>

std::int16_t GetDirLevel(const Text &thePath, int WhichSite)
{
    std::int16_t Result = 0;
    Trap([&] {
        const Text path = ifDirExists(thePath) ? AddTrailingSlash(thePath) : thePath;
        const Text base = WhichSite == 1 ? InProgramDir(AddTrailingSlash(ProjectNumber)) : LocalSiteDir;
        // Deliberate: as many characters as the base has are cut off without being compared with it.
        Result = StrCount(RightPart(path, Len(path) - Len(base)), "\\");
    });
    return Result;
}

std::int16_t StrCount(const Text &theString, const Text &CountThis)
{
    return CountInString(theString, CountThis);
}

Text StringMulti(int HowMany, const Text &theString)
{
    Text Result;
    for (int i = 0; i < HowMany; ++i)
        Result += theString;
    return Result;
}

namespace
{
// What is sought is Before, a double quote and After; Replacement takes the place of After.
struct Replacement {
    Text Before, After, Replacement;
};
using Replacements = std::vector<Replacement>;

// Makes the replacements over the whole text, one after the other. The text is not lower-cased again before each one:
// all that is inserted is in lower case.
Text ReplaceInTurn(Text thePage, const Replacements &theReplacements)
{
    for (const Replacement &one : theReplacements)
        thePage = ReplaceText(thePage, one.Before + "\"" + one.After, one.Before + "\"" + one.Replacement);
    return thePage;
}

// Gives the same result in one pass from quote to quote. That works because every text sought contains exactly one
// quote, the part to the left of it is never changed, and the part to the right ends before the next quote. So the
// replacements at one quote cannot affect those at another.
Text ReplaceInOnePass(const Text &thePage, const Replacements &theReplacements)
{
    Text Result;
    Result.reserve(thePage.size() + thePage.size() / 16);
    const std::string_view page = thePage;
    std::size_t copied = 0;
    for (std::size_t quote = 0; (quote = page.find('"', quote)) != std::string_view::npos; ++quote) {
        const char next = quote + 1 < page.size() ? page[quote + 1] : '\0';
        const char previous = quote > 0 ? page[quote - 1] : '\0';
        // A quick test first, because most quotes have nothing to replace.
        if (previous != '=' && next != '/' && next != '>')
            continue;
        // The text behind the quote is at any time: what was inserted, then the page from here on.
        std::size_t from = quote + 1;
        std::string_view inserted;
        for (const Replacement &one : theReplacements) {
            // Comparing one character first rules out most replacements.
            if (!inserted.empty() || from >= page.size() || page[from] != one.After[0])
                continue;
            if (page.substr(0, quote).ends_with(one.Before) && page.substr(from).starts_with(one.After)) {
                from += one.After.size();
                inserted = one.Replacement;
            }
        }
        if (from == quote + 1 && inserted.empty())
            continue;
        Result.append(page, copied, quote + 1 - copied);
        Result += inserted;
        copied = from;
        quote = from - 1;
    }
    Result.append(page, copied);
    return Result;
}

Text Relink(const Text &thePage, const Replacements &theReplacements)
{
    // The single pass is wrong for a domain that contains a quote, and for one that could match an inserted prefix.
    const bool isPlain = !Contains(DomainName, "\"") && !BeginsWith(DomainName, ".");
    Text page = LowerText(thePage);
    return isPlain ? ReplaceInOnePass(page, theReplacements) : ReplaceInTurn(std::move(page), theReplacements);
}
}  // namespace

Text RelinkExpandedPage(const Text &thePage, const Text &depthPrefix)
{
    // Deliberate: only values in double quotes are replaced, and "/imgs" is replaced in every attribute.
    // Deliberate: DomainName is not lower-cased, but the page is: a domain with a capital letter is never found.
    return Relink(
        thePage, {{"src=", DomainName + "\\", depthPrefix}, {"src=", DomainName + "/", depthPrefix},
                     {"href=", DomainName + "/", depthPrefix}, {"", "/imgs", depthPrefix + "imgs"}, {"", ">>", ">"}});
}

Text RelinkRoutedPage(const Text &thePage, const Text &depthPrefix)
{
    // Deliberate: every double-quoted link to the root is replaced here, but ">>" is not repaired.
    return Relink(thePage, {{"src=", DomainName + "\\", depthPrefix}, {"src=", DomainName + "/", depthPrefix},
                               {"href=", DomainName + "/", depthPrefix}, {"href=", "/", depthPrefix},
                               {"", "/imgs", depthPrefix + "imgs"}});
}
