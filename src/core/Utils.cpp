#include "core/Utils.h"
#include "core/TextOps.h"
#include "core/Trap.h"

static Text JoinLines(const std::vector<Text> &theLines)
{
    Text Result;
    for (const Text &line : theLines)
        Result += line + CRLF;
    return Result;
}

void ShowMessageLines(const std::vector<Text> &theLines)
{
    Trap([&] { MsgBox(JoinLines(theLines)); });
}

void LogMessageLines(const std::vector<Text> &)
{
    // Deliberate: the program keeps no log. The calls mark the places where it would write one.
}

Text StripFromEnds(const Text &theString, const Text &theSub, Flag fromFront)
{
    const auto fits = [&](const Text &theText) {
        return fromFront > 0 ? BeginsWith(theText, theSub) : EndsWith(theText, theSub);
    };
    Text Result = theString;
    Trap([&] {
        if (!fits(theString))
            return;
        const std::int64_t rest = Len(theString) - Len(theSub);
        const Text work = fromFront > 0 ? RightPart(theString, rest) : LeftPart(theString, rest);
        // Deliberate: a doubled occurrence, or a text of one character, comes back unchanged. The link rules depend on
        // it.
        if (Len(theString) > 1 && !fits(work))
            Result = work;
    });
    return Result;
}

Text ReplaceText(const Text &theString, const Text &findThis, const Text &replaceWith)
{
    Text Result;
    std::int64_t from = 1;
    Trap([&] {
        for (std::int64_t found; (found = FindText(from, theString, findThis)) != 0; from = found + Len(findThis)) {
            Result.append(theString, static_cast<std::size_t>(from - 1), static_cast<std::size_t>(found - from));
            Result += replaceWith;
        }
    });
    // Behind the trap, so that a failure in the loop still keeps the rest of the text.
    Result.append(theString, static_cast<std::size_t>(from - 1));
    return Result;
}

Text StripFileFromEnd(const Text &thePath)
{
    Text Result;
    Trap([&] {
        std::int16_t length = Count16(Len(thePath));
        if (EndsWith(thePath, "\\"))
            --length;
        const std::int16_t k = Count16(FindLastText(LeftPart(thePath, length), "\\"));
        Result = k >= 1 ? LeftPart(thePath, k - 1) : "0";
    });
    return Result;
}

std::int16_t CountInString(const Text &theString, const Text &findThis)
{
    std::int16_t Result = 0;
    Trap([&] {
        std::int64_t count = 0;
        for (std::int64_t found = 0; (found = FindText(found + 1, theString, findThis, true)) != 0;)
            Count16(++count);
        Result = Count16(count);
    });
    return Result;
}

Text CloseUpEquals(const Text &theTag)
{
    Text Result;
    Trap([&] {
        // Deliberate: a single pass that does not look back, so one of two blanks beside an "=" stays.
        Result.reserve(theTag.size());
        std::size_t from = 0;
        for (std::size_t equals; (equals = theTag.find('=', from)) != Text::npos;) {
            const bool isBehindBlank = equals > from && theTag[equals - 1] == ' ';
            Result.append(theTag, from, equals - from - isBehindBlank) += '=';
            from = equals + 1;
            if (from < theTag.size() && theTag[from] == ' ')
                ++from;
        }
        Result.append(theTag, from);
    });
    return Result;
}
