// What the player prints: one entry for each thing that a user would see.
#pragma once
#include "base/Text.h"

// Prints an entry: its subject, such as "screen" or "box", and its text, which may have several lines.
void Say(const Text &theSubject, const Text &theText);
// With false nothing is printed any more, with true again.
void SetTranscript(bool isWanted);
