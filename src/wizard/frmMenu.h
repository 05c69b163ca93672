// The main menu: the program, its questions and answers, its support.
#pragma once
#include "toolkit/Controls.h"

namespace frmMenu
{
extern Form Me;
}  // namespace frmMenu
