// The start screen: fills the globals, shows the version for three seconds and hands over to the wizard.
#pragma once
#include "toolkit/Controls.h"

namespace frmSplash
{
extern Form Me;

// Gives the globals their defaults and loads the word lists.
void Init_Vars();
}  // namespace frmSplash
