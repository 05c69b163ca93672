// Writes that aren't finished: copies that will be rewritten later, and text that has not been added to a growing file
// yet. Files.cpp is the only caller of all but Flush. Files are named by their host paths.
//
// Most copies are new pages, and the route pass at the end of a run rewrites each of them. The rewritten text can
// already be computed when the copy is requested. So the copy is written in its final form at once, by the writer, and
// the later rewriting only confirms it. Until then the program treats it as a plain copy: reading it gives the bytes of
// its source, and a copy that is never confirmed is replaced by them in the end.
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
// True if theFile is an unconfirmed copy with this expectation. It is no longer pending then.
bool Confirm(const Text &theFile, const Expectation &theChange);

// Adds theText to the end of theFile, which is there, some time before it is read.
void AddText(const Text &theFile, const Text &theText);
// Text that is still to be added to theFile; null when there is none.
const Text *AddedText(const Text &theFile);

// Makes theFile on the disk what the program takes it for; a run-time failure when that cannot be done.
void Complete(const Text &theFile);
// Drops what is pending for theFile, because the file is being replaced or deleted.
void Forget(const Text &theFile);
// Waits until the writer has written its whole queue. Await does so if theFile may be in it.
void FinishWriting();
void Await(const Text &theFile);
// Makes the writer start on its queue at once. Called before the user can look at the disk.
void Hurry();

// Completes all that is pending, and forgets what was kept of the sources. Never fails: what could not be written is
// among the losses.
void Flush();
}  // namespace PendingWrites
