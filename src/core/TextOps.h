// The text operations that all link rules are written in. Positions count from 1; 0 means not found.
#pragma once
#include "base/Text.h"

// The first n characters; all of them when n is at least the length. A failure when n is negative.
Text LeftPart(const Text &theText, std::int64_t n);
// The last n characters; all of them when n is at least the length. A failure when n is negative.
Text RightPart(const Text &theText, std::int64_t n);
// Up to n characters from position theStart, empty when that lies past the end. A failure when theStart is below 1 or n
// is negative.
Text MidPart(const Text &theText, std::int64_t theStart, std::int64_t n);
// Position of the first occurrence of theWhat at or after theStart. An empty theWhat is found at theStart, as long as
// that is at most the length plus 1. A failure when theStart is below 1.
std::int64_t FindText(std::int64_t theStart, const Text &theText, const Text &theWhat, bool ignoreCase = false);
// Position of the last occurrence of theWhat.
std::int64_t FindLastText(const Text &theText, const Text &theWhat);
// Position of the last occurrence that ends at or before theStart.
std::int64_t FindLastText(const Text &theText, const Text &theWhat, std::int64_t theStart, bool ignoreCase);

inline std::int64_t Len(const Text &theText)
{
    return static_cast<std::int64_t>(theText.size());
}
Text LowerText(Text theText);
bool EqualsIgnoringCase(const Text &a, const Text &b);
bool BeginsWith(const Text &theText, const Text &theHead);
bool EndsWith(const Text &theText, const Text &theTail);
bool Contains(const Text &theText, const Text &theWhat);

// The number that a text begins with: leading blanks, one sign, digits, one point, digits; 0 when there is none.
double NumberAtStart(const Text &theText);
// A number as plain decimal text: "7", "3.5", "-1".
Text NumberText(double theNumber);
