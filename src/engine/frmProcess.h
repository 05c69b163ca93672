// The run screen: starts an expansion, shows its counts, and pauses or cancels it.
#pragma once
#include "toolkit/Controls.h"
#include "toolkit/Pickers.h"
#include "wizard/MenuBar.h"

namespace frmProcess
{
extern Form Me;
extern DirList Dir1;    // the current directory of the walk
extern FileList File1;  // its files
extern Timer Timer2;    // moves the meter while the report is made
extern MenuBar Menu;
extern Label lblCurrentFile, lblOrigSiteDir, lblNewSiteDir;
// The counts of a run, as decimal text. All but two of them are stored nowhere else.
extern Label lblFilesCnt, lblPagesAdded, lblKeywordsAdded, lblLinksInternalCnt, lblLinksExternalCnt, lblLinksBrokenCnt,
    lblLinksMedia, lblMediaFilesFound;

// Makes the report, shows it and closes the run screens.
void btnReport_Click();
}  // namespace frmProcess
