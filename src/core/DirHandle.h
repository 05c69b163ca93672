// Directory services. A path is absolute, with drive letter, colon and backslash.
#pragma once
#include "base/Text.h"

// True when thePath, with or without a final backslash, is a directory. A path of another form brings two messages and
// gives false.
bool ifDirExists(const Text &thePath);
// True for a drive that is there, named by its letter alone or as "x:\"; looks at the first three characters only.
bool ifDriveExists(const Text &thePath);
// Creates every missing directory of thePath; a last element with a dot is taken for a file's name and left out. True,
// even when something could not be made.
bool CreateDirectories(const Text &thePath);
// Creates one directory; false when that failed.
bool MakeOneDir(const Text &thePath);
