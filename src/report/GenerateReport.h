// The end of a run: makes the report pages from their templates and runs the route pass.
#pragma once
#include "toolkit/Controls.h"

// Makes the report pages of the run that frmProcess has finished and runs the route pass, showing its progress on
// frmGeneratingReport. Yields; has no trap.
void GenerateReport();
// Writes the text of theRTB and a line end to theFile.html in the store directory; False if that directory is
// missing.
Flag WriteTheReport(const Text &theFile, const TextHolder &theRTB);
