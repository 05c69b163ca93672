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

bool RowFinder::AnyRowIn(const Text &theText)
{
    if (revision != list.Revision())
        BuildIndex();
    if (hasEmptyRow)
        return true;
    for (std::size_t at = 0; at < theText.size(); ++at) {
        // The last character is paired with the zero behind the text, so only rows of one character can match there.
        const std::size_t pair = PairOf(theText[at], theText.c_str()[at + 1]);
        if (!beginnings.test(pair))
            continue;
        for (const Text &row : byBeginning[pair])
            if (theText.compare(at, row.size(), row) == 0)
                return true;
    }
    return false;
}
