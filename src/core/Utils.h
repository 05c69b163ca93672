// Message lines and the small text procedures on which the link rules and the wizard stand.
#pragma once
#include "base/Text.h"
#include <vector>

// Shows the lines in one message box, each followed by CR LF.
void ShowMessageLines(const std::vector<Text> &theLines);
// The silent twin: shows nothing.
void LogMessageLines(const std::vector<Text> &theLines);

// theString without theSub at its front (fromFront above 0) or at its end. It strips one occurrence; a doubled one
// defeats it.
Text StripFromEnds(const Text &theString, const Text &theSub, Flag fromFront);
// theString with each occurrence of findThis replaced, from left to right; replaced text is not scanned again.
Text ReplaceText(const Text &theString, const Text &findThis, const Text &replaceWith);
// The parent of a path, without a final backslash; "0" when no backslash is left.
Text StripFileFromEnd(const Text &thePath);
// How often findThis occurs in theString, ignoring case; overlapping occurrences count. 0 past 32,767.
std::int16_t CountInString(const Text &theString, const Text &findThis);
// theTag with one blank taken away on either side of each "=".
Text CloseUpEquals(const Text &theTag);
