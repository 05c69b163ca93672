#include "engine/RowFinder.h"

static std::size_t PairOf(char theFirst, char theSecond)
{
    return static_cast<std::size_t>(static_cast<unsigned char>(theFirst) << 8 | static_cast<unsigned char>(theSecond));
}

void RowFinder::BuildIndex()
{
    revision = list.Revision();
    hasEmptyRow = false;
    beginnings.reset();
    byBeginning.clear();
    for (const Text &row : list.Rows()) {
        if (row.empty()) {
            hasEmptyRow = true;
            continue;
        }
        // A row of one character is listed under every pair that begins with it.
        for (int second = 0; second < 256; ++second)
            if (row.size() == 1 || static_cast<char>(second) == row[1]) {
                const std::size_t pair = PairOf(row[0], static_cast<char>(second));
                beginnings.set(pair);
                byBeginning[pair].push_back(row);
            }
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
        const std::size_t pair = PairOf(theText[at], at + 1 < theText.size() ? theText[at + 1] : '\0');
        if (!beginnings.test(pair))
            continue;
        for (const Text &row : byBeginning[pair])
            if (theText.compare(at, row.size(), row) == 0)
                return at;
    }
    return Text::npos;
}
