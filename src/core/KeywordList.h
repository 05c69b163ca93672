// Lists of keywords as users write them: which keywords a text holds, and whether they are enough for a run.
#pragma once
#include "base/Text.h"
#include <vector>

struct Keyword {
    std::int64_t Line;  // of its list
    Text Word;
};

// theText with a carriage return and a line feed at the end of each line, the last one included, whatever ends its
// lines have. A mark at the front that says the text is UTF-8 is left out.
Text WithWindowsLineEnds(const Text &theText);
// The keywords of a list with such line ends, as the wizard takes them.
std::vector<Keyword> KeywordsOf(const Text &theText);
// How many different keywords every file name is sure to find, up to theMost. A keyword that is part of another one
// doesn't count: once the other is in the name, it can't be added.
long SureKeywords(const std::vector<Keyword> &theKeywords, long theMost);
