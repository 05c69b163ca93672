// The walk over the local site, which treats or copies every file.
#pragma once
#include "base/Text.h"

// Fails when no project is chosen, or when theDir and the project directory contain one another.
void RefuseOwnProject(const Text &theDir);
// Treats or copies every file of the directory in frmProcess.Dir1 and of all directories below. Has no trap.
void SiteWalk();
