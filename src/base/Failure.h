// What can stop a procedure: a run-time failure or the end of the program.
#pragma once
#include "base/Text.h"
#include <cstdint>
#include <limits>

// A failure that a trap catches: a text operation with a wrong position, a count beyond its 16 or 32 bits, a failed
// file operation, a list row that isn't there, a picture that cannot be loaded.
struct RuntimeFailure {
    Text What;   // one line for a person, such as "negative count"
    Text Where;  // the operation or the path that failed
};

// A failure that no trap caught. It passes through all outer traps and ends the program.
struct UntrappedFailure {
    RuntimeFailure Failure;
};

// The program is ending; passes through every trap.
struct ProgramEnd {
    int Code;
};

[[noreturn]] inline void Fail(const Text &theWhat, const Text &theWhere)
{
    throw RuntimeFailure{theWhat, theWhere};
}

// Ends the program at once, with nothing saved and no screen closed. Doesn't return.
[[noreturn]] inline void End()
{
    throw ProgramEnd{0};
}

// theValue as a 16-bit signed count; a run-time failure when it doesn't fit.
inline std::int16_t Count16(std::int64_t theValue)
{
    if (theValue < std::numeric_limits<std::int16_t>::min() || theValue > std::numeric_limits<std::int16_t>::max())
        Fail("16-bit count out of range", "Count16");
    return static_cast<std::int16_t>(theValue);
}
