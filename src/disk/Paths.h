// Paths of the program, in the form x:\dir\file: their parts, the drives, the program directory. Nothing here looks at
// the disk.
//
// Empty elements and "." are skipped, ".." takes back the element before it and never climbs above the drive's root,
// and "/" separates elements as "\" does.
#pragma once
#include "base/Text.h"
#include <string_view>
#include <vector>

namespace Paths
{
// Lets a drive letter stand for a directory of the host.
void MapDrive(char theLetter, const Text &theHostDir);
// "c:", "d:" and so on, ascending.
std::vector<Text> Drives();
// The directory of the host that a drive stands for; empty when there is no such drive.
Text DriveRoot(char theLetter);
// Counts the changes of the drives, for code that keeps something found through a drive.
unsigned DriveChanges();

// The directory of the running program, in the program's form and without a final backslash.
const Text &ProgramDir();
// The same as a directory of the host; without a final slash, thus empty for the host's root.
const Text &ProgramHostDir();
// Sets it, as a full path of the host.
void SetProgramDir(const Text &theHostDir);

// A full path of the host in the program's form.
Text FromHost(const Text &theHostPath);
// Whether thePath is a full path of the host.
bool IsHostPath(const Text &thePath);
// thePath without "." and "..", with single backslashes and without a final one.
Text Normalize(const Text &thePath);
// Whether thePath is theDir or lies below it, compared as text once both are normalized.
bool IsInside(const Text &thePath, const Text &theDir);
// Whether a name matches a pattern with "*" and "?", ignoring case.
bool MatchesPattern(const Text &theName, const Text &thePattern);
// True for "\" and "/".
inline bool IsSeparator(char theChar)
{
    return theChar == '\\' || theChar == '/';
}
// Below 0, 0 or above 0, as a comes before, with or after b by their lower-case forms.
int CompareIgnoringCase(std::string_view a, std::string_view b);
}  // namespace Paths
