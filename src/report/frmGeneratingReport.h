// Stands in front while the report is made: five steps that are ticked off, and a box that slides through a meter.
#pragma once
#include "toolkit/Controls.h"

namespace frmGeneratingReport
{
extern Form Me;
extern Image chkboxLinksExt, chkboxLinksBrk, chkboxMediaReport, chkboxStatGen, chkboxRouteNav;
extern Frame Frame1;
extern Shape Shape1;

// Moves the box one step through its frame; from the right end it comes in anew at the left.
void ShowMeter(Frame &theFrame, Shape &theBox);
}  // namespace frmGeneratingReport
