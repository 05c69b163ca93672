// Asks whether to load a project or to create one.
#pragma once
#include "toolkit/Controls.h"

namespace frmLoadCreate
{
extern Form Me;
}  // namespace frmLoadCreate
