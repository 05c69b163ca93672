// What the disk could not do: each failed read, write, copy, deletion or listing, also one that a trap swallows. The
// program itself stays silent about most of them; a presentation tells what no message box has told.
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

// Notes a failure whose Where is a path of the program or of the host. The same one again only counts.
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
