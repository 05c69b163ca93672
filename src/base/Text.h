// The elementary kinds of value that every unit uses.
#pragma once
#include <cstdint>
#include <string>

// A text is bytes, one a character; they pass through the program unchanged.
using Text = std::string;

// Truth as the saved files and the 16-bit results know it.
using Flag = std::int16_t;
inline constexpr Flag True = -1;
inline constexpr Flag False = 0;

inline constexpr const char *CRLF = "\r\n";

// Only A to Z have lower-case forms; every other byte is its own.
constexpr char LowerChar(char theChar)
{
    return theChar >= 'A' && theChar <= 'Z' ? static_cast<char>(theChar + ('a' - 'A')) : theChar;
}
