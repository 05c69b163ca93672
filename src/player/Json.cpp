#include "player/Json.h"
#include <cstdio>

// How many bytes the character of UTF-8 at theAt has; 0 when there is none.
static std::size_t Utf8Length(const Text &theText, std::size_t theAt)
{
    const auto byte = [&](std::size_t i) { return i < theText.size() ? static_cast<unsigned char>(theText[i]) : 0u; };
    const unsigned first = byte(theAt);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(theAt + i) & 0xC0) != 0x80)
            return 0;
    const unsigned second = byte(theAt + 1);
    const bool isWrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                         (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return isWrong ? 0 : length;
}

static bool IsUtf8(const Text &theText)
{
    for (std::size_t at = 0; at < theText.size();) {
        const std::size_t length = Utf8Length(theText, at);
        if (length == 0)
            return false;
        at += length;
    }
    return true;
}

namespace Json
{
Text String(const Text &theText)
{
    const bool isUtf8 = IsUtf8(theText);
    Text Result = "\"";
    for (const char c : theText) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F) {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04x", byte);
            Result += code;
        } else if (c == '"' || c == '\\')
            Result += Text("\\") + c;
        else if (byte < 0x80 || isUtf8)
            Result += c;
        else
            Result += {static_cast<char>(0xC0 | byte >> 6), static_cast<char>(0x80 | (byte & 0x3F))};
    }
    return Result + '"';
}

Text Number(std::int64_t theNumber)
{
    return std::to_string(theNumber);
}

Text Object(const std::vector<Member> &theMembers, bool inLines)
{
    Text Result = "{";
    for (const Member &member : theMembers)
        Result += Text(&member == &theMembers.front() ? ""
                       : inLines                      ? ","
                                                      : ", ") +
                  (inLines ? "\n  " : "") + '"' + member.Name + "\": " + member.Value;
    return Result + (inLines ? "\n}" : "}");
}

Text Array(const std::vector<Text> &theValues)
{
    Text Result = "[";
    for (const Text &value : theValues)
        Result += (&value == &theValues.front() ? "\n    " : ",\n    ") + value;
    return Result + (theValues.empty() ? "]" : "\n  ]");
}
}  // namespace Json
