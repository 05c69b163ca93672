#include "core/TextOps.h"
#include "base/Failure.h"
#include <algorithm>
#include <charconv>
#include <string_view>

static std::size_t Size(std::int64_t theCount)
{
    return static_cast<std::size_t>(theCount);
}

static bool EqualsFolded(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return LowerChar(x) == LowerChar(y); });
}

static std::int64_t Position(std::size_t theIndex)
{
    return theIndex == Text::npos ? 0 : static_cast<std::int64_t>(theIndex) + 1;
}

// Most texts that are looked for are single characters, and these are found much faster as such.
static std::int64_t Find(const Text &theText, const Text &theWhat, std::size_t theFrom)
{
    return Position(theWhat.size() == 1 ? theText.find(theWhat[0], theFrom) : theText.find(theWhat, theFrom));
}

static std::int64_t FindLast(const Text &theText, const Text &theWhat, std::size_t theFrom)
{
    return Position(theWhat.size() == 1 ? theText.rfind(theWhat[0], theFrom) : theText.rfind(theWhat, theFrom));
}

Text LeftPart(const Text &theText, std::int64_t n)
{
    if (n < 0)
        Fail("negative count", "LeftPart");
    return theText.substr(0, Size(n));
}

Text RightPart(const Text &theText, std::int64_t n)
{
    if (n < 0)
        Fail("negative count", "RightPart");
    return n >= Len(theText) ? theText : theText.substr(theText.size() - Size(n));
}

Text MidPart(const Text &theText, std::int64_t theStart, std::int64_t n)
{
    if (theStart < 1)
        Fail("start below 1", "MidPart");
    if (n < 0)
        Fail("negative count", "MidPart");
    return theStart > Len(theText) ? Text() : theText.substr(Size(theStart - 1), Size(n));
}

std::int64_t FindText(std::int64_t theStart, const Text &theText, const Text &theWhat, bool ignoreCase)
{
    if (theStart < 1)
        Fail("start below 1", "FindText");
    if (theStart > Len(theText))
        return theWhat.empty() && theStart == Len(theText) + 1 ? theStart : 0;
    if (!ignoreCase)
        return Find(theText, theWhat, Size(theStart - 1));
    const auto from = theText.begin() + (theStart - 1);
    const auto found = std::search(from, theText.end(), theWhat.begin(), theWhat.end(),
        [](char x, char y) { return LowerChar(x) == LowerChar(y); });
    return found == theText.end() && !theWhat.empty() ? 0 : found - theText.begin() + 1;
}

std::int64_t FindLastText(const Text &theText, const Text &theWhat)
{
    return FindLast(theText, theWhat, Text::npos);
}

std::int64_t FindLastText(const Text &theText, const Text &theWhat, std::int64_t theStart, bool ignoreCase)
{
    const std::int64_t last = std::min(theStart, Len(theText)) - Len(theWhat);
    if (last < 0)
        return 0;
    if (!ignoreCase)
        return FindLast(theText, theWhat, Size(last));
    for (std::int64_t at = last; at >= 0; --at)
        if (EqualsFolded(std::string_view(theText).substr(Size(at), theWhat.size()), theWhat))
            return at + 1;
    return 0;
}

Text LowerText(Text theText)
{
    for (char &c : theText)
        c = LowerChar(c);
    return theText;
}

bool EqualsIgnoringCase(const Text &a, const Text &b)
{
    return EqualsFolded(a, b);
}

bool BeginsWith(const Text &theText, const Text &theHead)
{
    return theText.starts_with(theHead);
}

bool EndsWith(const Text &theText, const Text &theTail)
{
    return theText.ends_with(theTail);
}

bool Contains(const Text &theText, const Text &theWhat)
{
    return Find(theText, theWhat, 0) != 0;
}

double NumberAtStart(const Text &theText)
{
    const char *from = theText.data(), *const end = from + theText.size();
    while (from != end && *from == ' ')
        ++from;
    const bool isNegative = from != end && *from == '-';
    if (from != end && (*from == '-' || *from == '+'))
        ++from;
    const char *to = from;
    for (bool hasPoint = false; to != end && ((*to >= '0' && *to <= '9') || (*to == '.' && !hasPoint)); ++to)
        hasPoint |= *to == '.';
    double Result = 0;
    std::from_chars(from, to, Result, std::chars_format::fixed);
    return isNegative ? -Result : Result;
}

Text NumberText(double theNumber)
{
    char digits[400];
    if (theNumber == 0)
        theNumber = 0;  // not "-0"
    const auto end = std::to_chars(digits, digits + sizeof digits, theNumber, std::chars_format::fixed);
    return Text(digits, end.ptr);
}
