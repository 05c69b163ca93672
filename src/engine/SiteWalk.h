// The walk over the local site: which files are treated as pages, which are copied, and the counts on the way.
#pragma once
#include "toolkit/Controls.h"

// Fails when no project is chosen, or when theDir and the project directory contain one another.
void RefuseOwnProject(const Text &theDir);
// Treats or copies every file of the directory in frmProcess.Dir1 and of all directories below. Has no trap.
void SiteWalk();
// True for a file name that the filter lets through: the file is treated as a page.
bool PassesFilter(const Text &theFile);
// Adds theNumber to a count that is kept in a label's caption.
void AddToCount(Label &theLabel, double theNumber = 1);
