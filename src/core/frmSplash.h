// The start screen: sets the globals, shows the version for three seconds, then shows the wizard's first screen.
#pragma once
#include "toolkit/Controls.h"

namespace frmSplash
{
extern Form Me;

// Sets the globals to their defaults and loads the word lists.
void Init_Vars();
}  // namespace frmSplash
