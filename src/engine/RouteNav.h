// The second pass: in every page of the project directory, links to the site's root become relative to the page's
// depth.
#pragma once
#include "base/Text.h"

// Treats every page of the directory in frmProcess.Dir1 and of all directories below. Has no trap.
void RouteNav();
// Treats one file of the project directory, given by its full path.
void RouteTheFile(const Text &theFile);
