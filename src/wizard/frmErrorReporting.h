// Says where to report an error.
#pragma once
#include "toolkit/Controls.h"

namespace frmErrorReporting
{
extern Form Me;
}  // namespace frmErrorReporting
