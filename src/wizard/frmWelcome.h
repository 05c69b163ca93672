// Welcomes a newcomer.
#pragma once
#include "toolkit/Controls.h"

namespace frmWelcome
{
extern Form Me;
}  // namespace frmWelcome
