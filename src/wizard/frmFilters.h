// The extension filters of a project; List1 is asked by the run.
#pragma once
#include "toolkit/Controls.h"

namespace frmFilters
{
extern Form Me;
extern ListBox List1;  // the rows, compared with the last three letters of a name
}  // namespace frmFilters
