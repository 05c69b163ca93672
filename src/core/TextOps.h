// The text operations in which all link rules are written. Positions count from 1; 0 means not found.
#pragma once
#include "base/Text.h"

// The first n characters; the whole text when n is at least its length. Fails when n is negative.
Text LeftPart(const Text &theText, std::int64_t n);
// The last n characters; the whole text when n is at least its length. Fails when n is negative.
Text RightPart(const Text &theText, std::int64_t n);
// Up to n characters from position theStart; empty when that lies past the end. Fails when theStart is below 1 or n is
// negative.
Text MidPart(const Text &theText, std::int64_t theStart, std::int64_t n);
// The position of the first occurrence of theWhat at or after theStart. An empty theWhat is found at theStart itself,
// if that is at most the length plus 1. Fails when theStart is below 1.
std::int64_t FindText(std::int64_t theStart, const Text &theText, const Text &theWhat, bool ignoreCase = false);
// The position of the last occurrence of theWhat.
std::int64_t FindLastText(const Text &theText, const Text &theWhat);
// The position of the last occurrence that ends at or before theStart.
std::int64_t FindLastText(const Text &theText, const Text &theWhat, std::int64_t theStart, bool ignoreCase);

inline std::int64_t Len(const Text &theText)
{
    return static_cast<std::int64_t>(theText.size());
}
// Only A to Z have lower-case forms, here and wherever case is ignored.
Text LowerText(Text theText);
bool EqualsIgnoringCase(const Text &a, const Text &b);
bool BeginsWith(const Text &theText, const Text &theHead);
bool EndsWith(const Text &theText, const Text &theTail);
bool Contains(const Text &theText, const Text &theWhat);

// The number at the start of a text: blanks, one sign, digits, one point, digits. 0 when there is none.
double NumberAtStart(const Text &theText);
// A number as decimal text: "7", "3.5", "-1".
Text NumberText(double theNumber);
