// Asks for the directory of the local site and confirms the domain name.
#pragma once
#include "toolkit/Controls.h"

namespace frmDirectory
{
extern Form Me;
}  // namespace frmDirectory
