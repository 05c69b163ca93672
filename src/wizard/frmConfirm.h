// Shows the whole project once more before it is expanded.
#pragma once
#include "toolkit/Controls.h"

namespace frmConfirm
{
extern Form Me;
}  // namespace frmConfirm
