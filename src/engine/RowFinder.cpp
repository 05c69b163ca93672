#include "engine/RowFinder.h"

static std::size_t Code(char theChar)
{
    return static_cast<unsigned char>(theChar);
}

void RowFinder::Sort()
{
    revision = list.Revision();
    hasEmptyRow = false;
    beginnings.reset();
    for (auto &rows : byBeginning)
        rows.clear();
    for (const Text &row : list.Rows()) {
        if (row.empty()) {
            hasEmptyRow = true;
            continue;
        }
        byBeginning[Code(row[0])].push_back(row);
        for (std::size_t second = 0; second < 256; ++second)
            if (row.size() == 1 || second == Code(row[1]))
                beginnings.set(Code(row[0]) << 8 | second);
    }
}

bool RowFinder::FindsOneIn(const Text &theText)
{
    if (revision != list.Revision())
        Sort();
    if (hasEmptyRow)
        return true;
    for (std::size_t at = 0; at < theText.size(); ++at) {
        // Behind the last character stands a zero, which only a row of one character passes.
        if (!beginnings.test(Code(theText[at]) << 8 | Code(theText.c_str()[at + 1])))
            continue;
        for (const Text &row : byBeginning[Code(theText[at])])
            if (theText.compare(at, row.size(), row) == 0)
                return true;
    }
    return false;
}
