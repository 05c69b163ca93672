#include "core/RandomBas.h"
#include "core/Trap.h"
#include <cmath>

// The state is kept from draw to draw. Seeded from the clock alone, two draws within one tick would give the same
// number.
static constinit std::uint64_t randomState = 0;

static float NextRandom()
{
    randomState = (randomState ^ ClockTicks()) + 0x9e3779b97f4a7c15u;
    std::uint64_t mixed = randomState;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9u;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebu;
    randomState = mixed ^ (mixed >> 31);
    return static_cast<float>(randomState >> 40) / 16777216.0f;
}

double GetRandomNumber(double theLimit)
{
    double Result = 0;
    Trap([&] { Result = std::trunc(theLimit * static_cast<double>(NextRandom()) + 1); });
    return Result;
}

Text PadNumberLeft(std::int32_t theNumber, std::int16_t theWidth)
{
    Text Result;
    Trap([&] {
        Result = std::to_string(theNumber);
        if (const auto width = static_cast<std::size_t>(theWidth); theWidth > 0 && Result.size() < width)
            Result.insert(0, width - Result.size(), '0');
    });
    return Result;
}
