// The support site in an embedded browser. Who opens it shows it and then sends its browser to an address.
#pragma once
#include "toolkit/Controls.h"

namespace frmHelp
{
extern Form Me;
extern Browser &FinalReportBrowser;
}  // namespace frmHelp
