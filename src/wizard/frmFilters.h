// Edits the extension filters of a project; the run reads List1.
#pragma once
#include "toolkit/Controls.h"

namespace frmFilters
{
extern Form Me;
extern ListBox List1;  // the filters, compared with the last three letters of a file name
}  // namespace frmFilters
