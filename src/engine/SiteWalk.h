// The walk over the local site, which treats or copies every file.
#pragma once
#include "base/Failure.h"

// Fails when no project is chosen, or when theDir and the project directory contain one another.
void RefuseOwnProject(const Text &theDir);
// What becomes of a failure in a page. While this is null, the failure ends the run; a rehearsal sets it, and the walk
// goes on with the next page.
using PageFailureHandler = void (*)(const RuntimeFailure &theFailure);
inline constinit PageFailureHandler OnFailedPage = nullptr;
// Treats or copies every file of the directory in frmProcess.Dir1 and of all directories below. Has no trap.
void SiteWalk();
