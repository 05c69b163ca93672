// Finds what a run leaves out of the new site, or treats in a way that nobody would expect.
#pragma once
#include "player/Findings.h"

// Notes this for the names in one directory of the site, a path of the program, and not for those in directories below.
void CheckNames(const Text &theDir, Findings &theFindings);
