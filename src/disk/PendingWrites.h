// What the program has asked to be written and the disk doesn't hold yet. Files.cpp is the only caller of all but
// Flush, HasAny and TakeFailures.
//
// A copy makes its file at once, so that it fails where it was asked for; its bytes follow when they are wanted. Most
// copies are new pages that the route pass rewrites at the end of the run: they are written once instead of twice.
// Text added to a growing file is gathered in the same way. Files are named by their host paths here.
#pragma once
#include "base/Text.h"
#include <limits>
#include <vector>

namespace PendingWrites
{
// Writes all that is pending, or as much as it takes theMilliseconds to write. Never fails: what could not be written
// is told by TakeFailures, a message each, which forgets them.
void Flush(int theMilliseconds = std::numeric_limits<int>::max());
std::vector<Text> TakeFailures();
// Whether Flush has anything to write.
bool HasAny();

// Where the bytes of theFile are to be read: in the source of a pending copy, else in the file itself.
Text BytesPath(const Text &theFile);
bool IsCopy(const Text &theFile);
// Whether a copy of theSize bytes may wait: it is small, and the disk has room for all that is pending twice over.
bool MayWait(std::int64_t theSize);
// The bytes of theSource are to follow in theFile, which is there and empty.
void AddCopy(const Text &theFile, const Text &theSource, std::int64_t theSize);
// theText is to follow at the end of theFile, which is there.
void AddText(const Text &theFile, const Text &theText);
// Text that is still to be added to theFile; null when there is none.
const Text *AddedText(const Text &theFile);
// Hands the whole content of theFile to the writer.
void WriteLater(const Text &theFile, Text theContent);

// Writes what theFile still lacks; a run-time failure when that cannot be done.
void Complete(const Text &theFile);
// Waits where the writer has theFile in hand.
void AwaitWriter(const Text &theFile);
// theFile is to be replaced or deleted: nothing that is pending for it is wanted any more.
void Forget(const Text &theFile);
}  // namespace PendingWrites
