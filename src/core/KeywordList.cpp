#include "core/KeywordList.h"
#include "core/TextOps.h"
#include <algorithm>

Text WithWindowsLineEnds(const Text &theText)
{
    Text Result;
    for (std::size_t at = theText.starts_with("\xEF\xBB\xBF") ? 3 : 0; at < theText.size();) {
        const std::size_t end = std::min(theText.find_first_of("\r\n", at), theText.size());
        Result += theText.substr(at, end - at) + CRLF;
        at = end + (theText.compare(end, 2, CRLF) == 0 ? 2 : 1);
    }
    return Result;
}

std::vector<Keyword> KeywordsOf(const Text &theText)
{
    std::vector<Keyword> Result;
    std::int64_t line = 0;
    for (std::size_t at = 0; at < theText.size();) {
        ++line;
        const std::size_t end = std::min(theText.find('\r', at), theText.size());
        if (end > at)
            Result.push_back({line, theText.substr(at, end - at)});
        at = end + 2;
    }
    return Result;
}

long SureKeywords(const std::vector<Keyword> &theKeywords, long theMost)
{
    std::vector<Text> words;
    words.reserve(theKeywords.size());
    for (const Keyword &one : theKeywords)
        words.push_back(LowerText(one.Word));
    // From the longest on: a keyword can only be part of a longer one.
    std::sort(words.begin(), words.end(), [](const Text &a, const Text &b) { return a.size() > b.size(); });
    std::vector<Text> sure;
    for (const Text &word : words) {
        if (static_cast<long>(sure.size()) >= theMost)
            break;
        if (std::none_of(sure.begin(), sure.end(), [&](const Text &longer) { return Contains(longer, word); }))
            sure.push_back(word);
    }
    return static_cast<long>(sure.size());
}
