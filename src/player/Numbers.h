// Numbers as people read them.
#pragma once
#include "base/Text.h"

// The digits of a number, which isn't negative, in groups of three: "12,345".
Text Grouped(std::int64_t theNumber);
// A number with theDigits digits behind the point.
Text Rounded(double theNumber, int theDigits);
// Bytes in the unit that suits their number, such as "3.2 MB"; a MB is a million bytes.
Text Bytes(std::int64_t theBytes);
// A time in seconds such as "45 s", "3 min 5 s" or "2 h 10 min".
Text Duration(double theSeconds);
// "1 page", "2 pages": theNumber in groups and the word, with an "s" unless it is one.
Text Counted(std::int64_t theNumber, const Text &theWord);
