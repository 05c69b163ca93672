// Tells whether another process of the program works in the same directory.
#pragma once
#include "base/Text.h"

namespace Io
{
// Marks a directory as used by this process until it ends, in whatever way. Returns false when another process has
// marked it already. Nothing is written; where the file system can mark nothing, the answer is true.
bool Claim(const Text &theDir);
}  // namespace Io
