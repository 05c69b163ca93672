// The support site in an embedded browser. The caller shows it, then navigates its browser.
#pragma once
#include "toolkit/Controls.h"

namespace frmHelp
{
extern Form Me;
extern Browser &FinalReportBrowser;
}  // namespace frmHelp
