// Asks how many keywords go into a new file name.
#pragma once
#include "toolkit/Controls.h"

namespace frmKeywordsHowMany
{
extern Form Me;
}  // namespace frmKeywordsHowMany
