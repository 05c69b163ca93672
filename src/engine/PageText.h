// How deep a page lies below its root, and the fixed replacements that make the page's links to the root relative.
#pragma once
#include "base/Text.h"

// The number of directory levels between thePath and its base: LocalSiteDir, or the project directory when WhichSite
// is 1.
std::int16_t GetDirLevel(const Text &thePath, int WhichSite);
// How often CountThis occurs, ignoring case; overlapping occurrences count.
std::int16_t StrCount(const Text &theString, const Text &CountThis);
// theString repeated HowMany times; empty for 0 or less.
Text StringMulti(int HowMany, const Text &theString);

// thePage in lower case, with the five replacements of an expanded page. depthPrefix holds one "../" for each level.
Text RelinkExpandedPage(const Text &thePage, const Text &depthPrefix);
// thePage in lower case, with the five replacements of the route pass.
Text RelinkRoutedPage(const Text &thePage, const Text &depthPrefix);
