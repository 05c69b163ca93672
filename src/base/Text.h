// The basic types that every file uses.
#pragma once
#include <cstdint>
#include <string>

// A text is a sequence of bytes, one for each character. They pass through the program unchanged.
using Text = std::string;

// True and false as the saved files and the 16-bit results represent them.
using Flag = std::int16_t;
inline constexpr Flag True = -1;
inline constexpr Flag False = 0;

inline constexpr const char *CRLF = "\r\n";

// Only A to Z have lower-case forms; every other byte stays as it is.
constexpr char LowerChar(char theChar)
{
    return theChar >= 'A' && theChar <= 'Z' ? static_cast<char>(theChar + ('a' - 'A')) : theChar;
}
