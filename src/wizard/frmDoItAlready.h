// The last step before the run.
#pragma once
#include "toolkit/Controls.h"

namespace frmDoItAlready
{
extern Form Me;
}  // namespace frmDoItAlready
