#include "player/Numbers.h"
#include <cmath>
#include <cstdio>

Text Grouped(std::int64_t theNumber)
{
    const Text digits = std::to_string(theNumber);
    Text Result;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0)
            Result += ',';
        Result += digits[i];
    }
    return Result;
}

Text Rounded(double theNumber, int theDigits)
{
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.*f", theDigits, theNumber);
    return digits;
}

Text Bytes(std::int64_t theBytes)
{
    if (theBytes < 100'000)
        return Rounded(static_cast<double>(theBytes) / 1e3, 1) + " KB";
    if (theBytes < 10'000'000'000)
        return Rounded(static_cast<double>(theBytes) / 1e6, 1) + " MB";
    return Rounded(static_cast<double>(theBytes) / 1e9, 1) + " GB";
}

Text Duration(double theSeconds)
{
    const auto seconds = std::llround(theSeconds);
    if (seconds < 60)
        return std::to_string(seconds) + " s";
    if (seconds < 3600)
        return std::to_string(seconds / 60) + " min " + std::to_string(seconds % 60) + " s";
    return std::to_string(seconds / 3600) + " h " + std::to_string(seconds % 3600 / 60) + " min";
}

Text Counted(std::int64_t theNumber, const Text &theWord)
{
    return Grouped(theNumber) + ' ' + theWord + (theNumber == 1 ? "" : "s");
}
