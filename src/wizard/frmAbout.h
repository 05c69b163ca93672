// Says what Ferncastle is.
#pragma once
#include "toolkit/Controls.h"

namespace frmAbout
{
extern Form Me;
}  // namespace frmAbout
