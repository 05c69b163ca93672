// Says in words for a user why a run came to nothing.
#pragma once
#include "base/Failure.h"
#include "player/Findings.h"

// The system's words for a name that is longer than the disk allows.
Text NameTooLong();
// Where a failure or a standstill has ended a run, and why.
Finding ExplainFailure(const RuntimeFailure &theFailure);
Finding ExplainStandstill(const Text &theWhere, const Text &theWhy);
// Why the program has made no report: what it failed to do, or the last message that it showed, which is theLastBox.
Text ExplainMissingReport(const Text &theLastBox);
// theText on one line.
Text OnOneLine(const Text &theText);
