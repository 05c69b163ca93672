// Holds the page that is being put together; never shown.
#pragma once
#include "toolkit/Controls.h"

namespace frmTheFile
{
extern Form Me;
extern TextHolder rtb1;  // the page with its old tags and without its tail; nothing reads it
extern TextHolder rtb2;  // the page with its new tags; in the end the output
}  // namespace frmTheFile
