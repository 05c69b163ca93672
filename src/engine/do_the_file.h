// Page expansion: makes the expanded form of one file of the local site in the project directory.
#pragma once
#include "base/Text.h"

// Treats theFile, the bare name of a file in the directory of frmProcess.Dir1. Only its message for a missing file is
// trapped: any other failure ends the run.
void do_the_file(const Text &theFile);
