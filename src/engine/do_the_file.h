// Page expansion: makes the expanded form of one file of the local site in the project directory.
#pragma once
#include "base/Text.h"

// Where the "href" of the link in hand begins in RichTextBox2; 0 when there is no link in hand. Only a rehearsal reads
// it.
inline constinit std::int64_t LinkInHand = 0;
// Treats theFile, the bare name of a file in the directory of frmProcess.Dir1. Only its message for a missing file is
// trapped: any other failure ends the run.
void do_the_file(const Text &theFile);
