// Builds the Master Keyword List of the project.
#pragma once
#include "toolkit/Controls.h"

namespace frmKeywords
{
extern Form Me;

// Adds the keywords of project theKeyFile, of the current one when that is empty, to theList and to KeywordTotal.
// Touches no control of this screen, so it works while the screen is closed. While btnLoadKeywords is at work
// theKeyFile is the full path of a file instead. 2 when there is no such file, otherwise 0.
std::int16_t LoadThoseKeywords(ListBox &theList, Text theKeyFile);
}  // namespace frmKeywords
