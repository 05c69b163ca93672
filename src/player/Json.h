// Writes JSON.
#pragma once
#include "base/Text.h"
#include <vector>

namespace Json
{
// A text as JSON holds it. Bytes that are no UTF-8 are taken for Latin-1.
Text String(const Text &theText);
Text Number(std::int64_t theNumber);

// The members of an object, one after the other; the values are JSON.
struct Member {
    const char *Name;
    Text Value;
};
// In several lines, or in one.
Text Object(const std::vector<Member> &theMembers, bool inLines = false);
Text Array(const std::vector<Text> &theValues);
}  // namespace Json
