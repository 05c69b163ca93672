// Writes that aren't done with yet: copies that are expected to be changed later, and text that is still to be added to
// a growing file. Files.cpp is the only caller of all but Flush. Files are named by their host paths.
//
// Most copies are new pages, and the route pass at the end of a run rewrites each of them. What it will make of a copy
// is known when the copy is asked for. So the copy is written in its final form at once, by the writer, and the later
// rewriting only confirms it. Until then the copy counts as what it was asked to be: whoever reads it gets the bytes of
// its source, and a copy that is never confirmed gets them in the end.
#pragma once
#include "base/Text.h"
#include "disk/Expectation.h"

namespace PendingWrites
{
// Makes the new file theFile, a copy of theSource as theExpectation changes it. False, with nothing done, when the copy
// is to be made at once and unchanged. A run-time failure when the source cannot be read or the file cannot be made.
bool AddCopy(const Text &theFile, const Text &theSource, const Expectation &theExpectation);
// The source of a copy that isn't confirmed; null for any other file.
const Text *SourceOf(const Text &theFile);
// True when theFile is a copy of which just this was expected; it is done with then.
bool Confirm(const Text &theFile, const Expectation &theChange);

// Adds theText to the end of theFile, which is there, some time before it is read.
void AddText(const Text &theFile, const Text &theText);
// Text that is still to be added to theFile; null when there is none.
const Text *AddedText(const Text &theFile);

// Gives theFile the bytes that it counts as having; a run-time failure when that cannot be done.
void Complete(const Text &theFile);
// theFile is to be replaced or deleted: nothing that is pending for it is wanted any more.
void Forget(const Text &theFile);
// Waits until the writer has written all that it has in hand; Await does so where that may include theFile.
void FinishWriting();
void Await(const Text &theFile);
// Has the writer take up what it has in hand; for when somebody may look at the disk.
void Hurry();

// Completes all that is pending, and forgets what was kept of the sources. Never fails: what could not be written is
// among the losses.
void Flush();
}  // namespace PendingWrites
