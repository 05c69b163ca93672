// Directory services. Every path is absolute, with a drive letter, a colon and a backslash.
#pragma once
#include "base/Text.h"

// True when thePath, with or without a final backslash, is a directory. Shows two messages and returns false when the
// path has another form.
bool ifDirExists(const Text &thePath);
// True for a drive that exists, given by its letter alone or as "x:\". Only the first three characters are read.
bool ifDriveExists(const Text &thePath);
// Creates every missing directory of thePath. A last element with a dot counts as a file name and is left out. Returns
// true even when a directory could not be created.
bool CreateDirectories(const Text &thePath);
// Creates one directory. False when that failed.
bool MakeOneDir(const Text &thePath);
