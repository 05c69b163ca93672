#include "engine/PageText.h"
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include <cstring>
#include <string_view>
#include <vector>

namespace
{
struct Replacement {
    Text Before;       // stands in front of the quote and stays
    Text After;        // stands behind the quote and goes
    Text Replacement;  // takes its place
};
using Replacements = std::vector<Replacement>;

// Each replacement in its turn over the whole text. The text stays lower-case throughout, since all that is put in is.
Text ReplaceInTurn(Text thePage, const Replacements &theReplacements)
{
    for (const Replacement &one : theReplacements)
        thePage = ReplaceText(thePage, one.Before + "\"" + one.After, one.Before + "\"" + one.Replacement);
    return thePage;
}

// The same in one pass, quote by quote. It holds because all texts sought are anchored at their one quote, reach to the
// left only over what stays, and to the right not as far as the next quote: so no quote's replacements touch another's.
Text ReplaceInOnePass(const Text &thePage, const Replacements &theReplacements)
{
    Text Result;
    Result.reserve(thePage.size() + thePage.size() / 16);
    const std::string_view page = thePage;
    std::size_t copied = 0;
    for (std::size_t quote = 0; (quote = page.find('"', quote)) != std::string_view::npos; ++quote) {
        const char next = quote + 1 < page.size() ? page[quote + 1] : '\0';
        const char previous = quote > 0 ? page[quote - 1] : '\0';
        // Quick looks first: few quotes have anything to replace.
        if (previous != '=' && next != '/' && next != '>')
            continue;
        std::size_t from = quote + 1;  // what stands behind the quote by now: put, then the page from here on
        std::string_view put;
        for (const Replacement &one : theReplacements) {
            // All of them begin with a character of their own behind the quote, which few quotes have.
            if (!put.empty() || from >= page.size() || page[from] != one.After[0])
                continue;
            if (page.substr(0, quote).ends_with(one.Before) && page.substr(from).starts_with(one.After)) {
                from += one.After.size();
                put = one.Replacement;
            }
        }
        if (from == quote + 1 && put.empty())
            continue;
        Result.append(page, copied, quote + 1 - copied);
        Result += put;
        copied = from;
        quote = from - 1;
    }
    Result.append(page, copied);
    return Result;
}

Text Relink(const Text &thePage, const Replacements &theReplacements)
{
    // A domain with a quote in it, or one that could be taken for the prefix, leaves the one pass without its grounds.
    const bool isPlain = !Contains(DomainName, "\"") && !BeginsWith(DomainName, ".");
    Text page = LowerText(thePage);
    return isPlain ? ReplaceInOnePass(page, theReplacements) : ReplaceInTurn(std::move(page), theReplacements);
}
}  // namespace

Text RelinkExpandedPage(const Text &thePage, const Text &depthPrefix)
{
    // Deliberate: only double quotes are known, and of the directories in the root only "imgs", in any attribute.
    // Deliberate: the page is lower-case and DomainName is not lowered: one with a capital letter is never found.
    return Relink(
        thePage, {{"src=", DomainName + "\\", depthPrefix}, {"src=", DomainName + "/", depthPrefix},
                     {"href=", DomainName + "/", depthPrefix}, {"", "/imgs", depthPrefix + "imgs"}, {"", ">>", ">"}});
}

Text RelinkRoutedPage(const Text &thePage, const Text &depthPrefix)
{
    // Deliberate: any double-quoted link to the root, but no repair of ">>".
    return Relink(thePage, {{"src=", DomainName + "\\", depthPrefix}, {"src=", DomainName + "/", depthPrefix},
                               {"href=", DomainName + "/", depthPrefix}, {"href=", "/", depthPrefix},
                               {"", "/imgs", depthPrefix + "imgs"}});
}
