// Runs an expansion and shows its tallies.
#pragma once
#include "toolkit/Controls.h"
#include "toolkit/Pickers.h"
#include "wizard/MenuBar.h"

namespace frmProcess
{
extern Form Me;
extern DirList Dir1;    // current directory of the walk
extern FileList File1;  // its files
extern Timer Timer2;    // moves the meter while the report is made
extern MenuBar Menu;
extern Label lblCurrentFile, lblOrigSiteDir, lblNewSiteDir;
// The tallies of a run: decimal text, and the only copy of all but two of the counts.
extern Label lblFilesCnt, lblPagesAdded, lblKeywordsAdded, lblLinksInternalCnt, lblLinksExternalCnt, lblLinksBrokenCnt,
    lblLinksMedia, lblMediaFilesFound;

// Adds theNumber to a tally.
void AddToCount(Label &theLabel, double theNumber = 1);
// Walks the directory in Dir1 and below: treats or copies every file. Has no trap.
void SiteWalk();
// The filter's verdict on a file name.
bool PassesFilter(const Text &theFile);
// How many directories lie between thePath and its base: LocalSiteDir, or the project directory where WhichSite is 1.
std::int16_t GetDirLevel(const Text &thePath, int WhichSite);
// How often CountThis occurs, ignoring case; overlapping occurrences count.
std::int16_t StrCount(const Text &theString, const Text &CountThis);
// theString HowMany times; empty for 0 and less.
Text StringMulti(int HowMany, const Text &theString);
void btnReport_Click();
}  // namespace frmProcess
