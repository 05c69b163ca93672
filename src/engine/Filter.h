// The filter of file names: which files a run treats as pages.
#pragma once
#include "base/Text.h"

// True for a file name that the filter lets through: the file is treated as a page.
bool PassesFilter(const Text &theFile);
// True when the last three characters of theFile equal theRow, ignoring case.
bool EndsInRow(const Text &theFile, const Text &theRow);
