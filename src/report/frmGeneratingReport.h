// Shown while the report is made: five steps that are ticked off, and a box that slides through a meter.
#pragma once
#include "toolkit/Controls.h"

namespace frmGeneratingReport
{
extern Form Me;
extern Image chkboxLinksExt, chkboxLinksBrk, chkboxMediaReport, chkboxStatGen, chkboxRouteNav;
extern Frame Frame1;
extern Shape Shape1;

// Moves theBox one step to the right; past the right end of theFrame it comes back in at the left.
void ShowMeter(Frame &theFrame, Shape &theBox);
}  // namespace frmGeneratingReport
