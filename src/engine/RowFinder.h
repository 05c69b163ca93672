// Tests whether any row of a list occurs in a text. Every link is tested against hundreds of rows.
#pragma once
#include "toolkit/Controls.h"
#include <bitset>
#include <string_view>
#include <vector>

class RowFinder
{
public:
    explicit RowFinder(const ListBox &theList) : list(theList) {}
    // True when a row occurs in theText, compared exactly. An empty row occurs in every text.
    bool AnyRowIn(std::string_view theText) { return FirstRowIn(theText, 0) != Text::npos; }
    // Where the first row begins, counted from 0, at theStart or behind it; npos when there is none.
    std::size_t FirstRowIn(std::string_view theText, std::size_t theStart);

private:
    void BuildIndex();

    const ListBox &list;
    std::uint64_t revision = ~std::uint64_t{0};  // of the list when the index was built
    bool hasEmptyRow = false;
    std::bitset<65536> beginnings;  // the pairs of characters with which rows begin
    std::vector<Text> rows;         // ascending, without those that begin with another
};
