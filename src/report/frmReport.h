// The program's last screen: shows the report in an embedded browser. From here the program can only end.
#pragma once
#include "toolkit/Controls.h"

namespace frmReport
{
extern Form Me;
extern Browser &FinalReportBrowser;
}  // namespace frmReport
