#include "engine/RowFinder.h"
#include <algorithm>
#include <iterator>

static std::size_t PairOf(char theFirst, char theSecond)
{
    return static_cast<std::size_t>(static_cast<unsigned char>(theFirst) << 8 | static_cast<unsigned char>(theSecond));
}

void RowFinder::BuildIndex()
{
    revision = list.Revision();
    beginnings.reset();
    std::vector<Text> all = list.Rows();
    std::sort(all.begin(), all.end());
    hasEmptyRow = !all.empty() && all.front().empty();
    rows.clear();
    if (hasEmptyRow)
        return;
    for (Text &row : all) {
        if (!rows.empty() && row.starts_with(rows.back()))
            continue;
        // A row of one character is listed under every pair that begins with it.
        for (int second = 0; second < 256; ++second)
            if (row.size() == 1 || static_cast<char>(second) == row[1])
                beginnings.set(PairOf(row[0], static_cast<char>(second)));
        rows.push_back(std::move(row));
    }
}

std::size_t RowFinder::FirstRowIn(std::string_view theText, std::size_t theStart)
{
    if (revision != list.Revision())
        BuildIndex();
    if (hasEmptyRow)
        return theStart <= theText.size() ? theStart : Text::npos;
    for (std::size_t at = theStart; at < theText.size(); ++at) {
        // The last character is paired with a zero, so only rows of one character can match there.
        if (!beginnings.test(PairOf(theText[at], at + 1 < theText.size() ? theText[at + 1] : '\0')))
            continue;
        // No row begins with another, so the one before this place is the only one with which the rest can begin.
        const std::string_view rest = theText.substr(at);
        const auto behind = std::upper_bound(rows.begin(), rows.end(), rest);
        if (behind != rows.begin() && rest.starts_with(*std::prev(behind)))
            return at;
    }
    return Text::npos;
}
