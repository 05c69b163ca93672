// The counts of a run, which are kept in the captions of labels and in lists.
#pragma once
#include "toolkit/Controls.h"

// Adds theNumber to a count that is kept in a label's caption.
void AddToCount(Label &theLabel, double theNumber = 1);
// Counts theFile if it is a media file by its extension.
void TallyMediaFile(const Text &theFile);
