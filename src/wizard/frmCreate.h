// Names a new project, assigns its number and creates its directories.
#pragma once
#include "toolkit/Controls.h"

namespace frmCreate
{
extern Form Me;
}  // namespace frmCreate
