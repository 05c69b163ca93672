// The end of a run: makes the report pages from their templates and runs the route pass.
#pragma once
#include "report/Records.h"
#include "toolkit/Controls.h"

// Makes the report pages of the run that frmProcess has finished and runs the route pass, showing its progress on
// frmGeneratingReport. Yields; has no trap.
void GenerateReport();
// Writes the text of theRTB, with theRows in place of each theMarker, and a line end to theFile.html in the store
// directory; False if that directory is missing.
Flag WriteTheReport(
    const Text &theFile, const TextHolder &theRTB, const Text &theMarker = "", const TableRows &theRows = {});
