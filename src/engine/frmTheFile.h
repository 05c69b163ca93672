// Holds the page that is being assembled; never shown.
#pragma once
#include "toolkit/Controls.h"

namespace frmTheFile
{
extern Form Me;
extern TextHolder rtb1;  // the page with its old tags and without its end; nothing reads it
extern TextHolder rtb2;  // the page with its new tags; this is what is written
}  // namespace frmTheFile
