// Random and zero-filled numbers.
#pragma once
#include "base/Text.h"

// A whole number from 1 to theLimit; 1 for the limit 0. Every call mixes the clock into the generator.
double GetRandomNumber(double theLimit);
// The digits of theNumber with zeros in front up to theWidth characters; a wider number is never cut.
Text PadNumberLeft(std::int32_t theNumber, std::int16_t theWidth);
