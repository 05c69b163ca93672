// The second pass: links to the site's root in every page of the project directory become relative to the page's depth.
#pragma once
#include "base/Text.h"

// Treats the directory in frmProcess.Dir1 and all below. Has no trap.
void RouteNav();
// Treats one file of the project directory, given by its full path.
void RouteTheFile(const Text &theFile);
