// Names a new project, gives out its number and makes its directories.
#pragma once
#include "toolkit/Controls.h"

namespace frmCreate
{
extern Form Me;
}  // namespace frmCreate
