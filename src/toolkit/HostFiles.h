// The host's files as the program knows them: paths of the form x:\dir\, names found whatever their case.
//
// A directory is read once and kept while it is unchanged, so that a look-up costs a hash, not a scan; the program's
// own writes keep that memory true. A copy makes its file at once, but its bytes follow when they are wanted: a file
// that is copied and then written anew is written once, beside the program's further work. Settle puts on the disk what
// is outstanding; the toolkit calls it wherever somebody could look: before a wait, a browser's page, the end of the
// program, and when the outermost gate closes.
//
// Writes outside the program directory's saved files, its project directories and their stores are refused with a
// run-time failure. Paths: empty elements and "." are passed over, ".." is taken back by the text and never climbs
// above the drive's root, "/" parts elements as "\" does.
#pragma once
#include "toolkit/Text.h"
#include <limits>
#include <memory>
#include <vector>

namespace HostFiles
{
using Names = std::shared_ptr<const std::vector<Text>>;

// Lets a drive letter stand for a directory of the host.
void MapDrive(char theLetter, const Text &theHostDir);
// The directory of the running program, in the program's form and without a final backslash.
const Text &ProgramDir();
// Sets it, as a directory of the host.
void SetProgramDir(const Text &theHostDir);
// A path of the program as the host's, with the case that the disk has, as far as it is there.
Text ToHost(const Text &thePath);
// A full path of the host in the program's form.
Text FromHost(const Text &theHostPath);
// thePath with "." and ".." taken out and single backslashes, without a final one; for comparing places.
Text Plain(const Text &thePath);
// Whether thePath is theDir or lies below it when its ".." are followed.
bool LiesIn(const Text &thePath, const Text &theDir);
// The same for two directories that are there, with all links and drives followed.
bool ReallyLiesIn(const Text &thePath, const Text &theDir);

// True for a visible plain file. "*" and "?" in the last element are wildcards, unless a name really holds them.
bool IsFile(const Text &thePath);
// True for a directory, with or without a final backslash.
bool IsDirectory(const Text &thePath);
// True when the drive that thePath begins with is there.
bool DriveExists(const Text &thePath);
// "c:", "d:" and so on, ascending.
std::vector<Text> Drives();
// The visible files, or directories, of a directory, ascending ignoring case. Empty when there is no such directory.
Names Files(const Text &theDir);
Names Directories(const Text &theDir);
// Whether a name fits a pattern with "*" and "?", ignoring case.
bool FitsPattern(const Text &theName, const Text &thePattern);

// All of these fail with a run-time failure.
Text Read(const Text &theFile);
void Write(const Text &theFile, Text theContent);
void Append(const Text &theFile, const Text &theContent);
void Copy(const Text &theSource, const Text &theTarget);
void Delete(const Text &theFile);
// True when the file is empty or its last byte is LF.
bool EndsInLineFeed(const Text &theFile);
// Tells one state of a file from another; -1 when it isn't there. Never fails.
std::int64_t Stamp(const Text &theFile);
// The host's path of the file that theFile is an outstanding copy of; empty when it isn't one. Never fails.
Text SourceOfCopy(const Text &theFile);

// Makes one directory below an existing one; false when it is there already or cannot be made.
bool MakeDirectory(const Text &theDir);

// Writes all that is outstanding, or as much as it takes theMilliseconds to write. Never fails: what could not be
// written is told by TakeFailures, a message each, which forgets them.
void Settle(int theMilliseconds = std::numeric_limits<int>::max());
std::vector<Text> TakeFailures();
// Whether Settle has anything to write.
bool IsOutstanding();

// How long a directory is trusted before its time of change is looked at again, in milliseconds; 0 looks each time.
void RecheckAfter(int theMilliseconds);
}  // namespace HostFiles
