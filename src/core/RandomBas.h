// Random numbers, and numbers with leading zeros.
#pragma once
#include "base/Text.h"

// A random whole number from 1 to theLimit; 1 when theLimit is 0. Every call mixes the clock into the generator.
double GetRandomNumber(double theLimit);
// The digits of theNumber, with leading zeros up to theWidth characters. A wider number is not cut.
Text PadNumberLeft(std::int32_t theNumber, std::int16_t theWidth);
