// Message boxes of several lines, and the small text procedures that the link rules and the wizard use.
#pragma once
#include "base/Text.h"
#include <vector>

// Shows the lines in one message box, each followed by CR LF.
void ShowMessageLines(const std::vector<Text> &theLines);
// Takes the same lines and shows nothing.
void LogMessageLines(const std::vector<Text> &theLines);

// theString without theSub at its front (fromFront above 0) or at its end. Strips one occurrence; a text that has two
// in a row there comes back unchanged.
Text StripFromEnds(const Text &theString, const Text &theSub, Flag fromFront);
// theString with every occurrence of findThis replaced, from left to right. Replaced text is not searched again.
Text ReplaceText(const Text &theString, const Text &findThis, const Text &replaceWith);
// The parent of a path, without a final backslash; "0" when the path has no parent.
Text StripFileFromEnd(const Text &thePath);
// How often findThis occurs in theString, ignoring case. Overlapping occurrences count. 0 when there are more than
// 32,767.
std::int16_t CountInString(const Text &theString, const Text &findThis);
// theTag with one blank removed on either side of each "=".
Text CloseUpEquals(const Text &theTag);
