// Page expansion: one file of the local site becomes its expanded form in the project directory.
#pragma once
#include "base/Text.h"

// Treats theFile, the bare name of a file in the current directory of frmProcess.Dir1. A failure in it ends the run:
// only its message for a missing file is trapped.
void do_the_file(const Text &theFile);
