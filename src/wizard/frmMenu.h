// The main menu: start, read the FAQ or contact support.
#pragma once
#include "toolkit/Controls.h"

namespace frmMenu
{
extern Form Me;
}  // namespace frmMenu
