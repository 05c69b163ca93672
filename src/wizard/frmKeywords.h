// Builds the Master Keyword List of the project.
#pragma once
#include "toolkit/Controls.h"

namespace frmKeywords
{
extern Form Me;

// Adds the keywords of project theKeyFile (empty: the current one) to theList and their number to KeywordTotal. Touches
// no control of this screen, so it works while the screen is closed. While btnLoadKeywords_Click runs, theKeyFile is
// the full path of a file instead. Returns 2 if there is no such file, otherwise 0.
std::int16_t LoadThoseKeywords(ListBox &theList, Text theKeyFile);
}  // namespace frmKeywords
