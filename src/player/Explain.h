// Says in words for a user why a run came to nothing.
#pragma once
#include "base/Failure.h"
#include "player/Findings.h"
#include <optional>

// The system's words for a name that is longer than the disk allows.
Text NameTooLong();
// Where a failure or a standstill has ended a run, and why.
Finding ExplainFailure(const RuntimeFailure &theFailure);
Finding ExplainStandstill(const Text &theWhere, const Text &theWhy);
// Why the program has made no report: what it failed to do, or the last message that it showed, which is theLastBox.
Text ExplainMissingReport(const Text &theLastBox);
// A message of the program about a copy that it could not make: its paths, and why, as far as that is known.
struct FailedCopy {
    Text Source, Target;
    Text Reason;
};
// Reads it from the text of the message; nothing when this is another one.
std::optional<FailedCopy> ReadFailedCopy(const Text &theBox);
// theText on one line.
Text OnOneLine(const Text &theText);
