// Records failed file operations: each failed read, write, copy, deletion or listing, also one that a trap catches. The
// program itself says nothing about most of them. A presentation reports those that no message box has reported.
#pragma once
#include "base/Failure.h"
#include <vector>

namespace Losses
{
struct Loss {
    Text File;    // path of the program
    Text Reason;  // the system's own words
    long Times = 1;
    bool IsTold = false;  // by a message box, or handed out by TakeNews
};

// Notes a failure whose Where is a path of the program or of the host. A repeated failure only raises its count.
void Note(const RuntimeFailure &theFailure);
// Every loss that theWords name, by its path, counts as told.
void MarkTold(const Text &theWords);
// All losses so far, in the order in which they happened.
const std::vector<Loss> &All();
// Whether there is any that nobody has been told of.
bool HasNews();
// The losses that nobody has been told of, once.
std::vector<Loss> TakeNews();
}  // namespace Losses
