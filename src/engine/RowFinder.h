// Finds whether any row of a list stands in a text; every link asks that of hundreds of rows.
#pragma once
#include "toolkit/Controls.h"
#include <bitset>
#include <unordered_map>

class RowFinder
{
public:
    explicit RowFinder(const ListBox &theList) : list(theList) {}
    // True as soon as a row occurs in theText by exact comparison; an empty row occurs in every text.
    bool FindsOneIn(const Text &theText);

private:
    void Sort();

    const ListBox &list;
    std::uint64_t revision = ~std::uint64_t{0};  // of the list when its rows were sorted
    bool hasEmptyRow = false;
    std::bitset<65536> beginnings;  // the first two characters of all rows
    std::unordered_map<std::size_t, std::vector<Text>> byBeginning;
};
