// The host's files as the program knows them: by paths of the form x:\dir\file, with names found whatever their case.
//
// Writes outside the program directory's saved files, its project directories and their stores are refused with a
// run-time failure.
#pragma once
#include "base/Text.h"
#include <functional>
#include <memory>
#include <vector>

namespace Files
{
using Names = std::shared_ptr<const std::vector<Text>>;

// The path of the host for thePath, with the case that the disk has as far as it is there; empty without a drive.
Text ToHost(const Text &thePath);
// Whether thePath is theDir or lies below it, for two directories that are there, with all links and drives followed.
bool IsReallyInside(const Text &thePath, const Text &theDir);

// True for a visible plain file. "*" and "?" in the last element are wildcards, unless a name really contains them.
bool IsFile(const Text &thePath);
// True for a directory, with or without a final backslash.
bool IsDirectory(const Text &thePath);
// True when the drive that thePath begins with is there.
bool DriveExists(const Text &thePath);
// The visible files, or directories, of a directory, ascending ignoring case. Empty when there is no such directory.
Names FilesIn(const Text &theDir);
Names DirectoriesIn(const Text &theDir);

// All of these fail with a run-time failure.
Text Read(const Text &theFile);
void Write(const Text &theFile, Text theContent);
void Append(const Text &theFile, const Text &theContent);
void Copy(const Text &theSource, const Text &theTarget);
void Delete(const Text &theFile);
// True when the file is empty or its last byte is LF.
bool EndsInLineFeed(const Text &theFile);

// A change of a whole text that depends on nothing but the text and theArgument.
using Transform = Text (*)(const Text &theContent, const Text &theArgument);
// Replaces the content of theFile by what theTransform makes of it. Copies of one file are transformed once for each
// argument, as long as EndRewriting isn't called.
void Rewrite(const Text &theFile, Transform theTransform, const Text &theArgument);
// Forgets what Rewrite has kept.
void EndRewriting();

// Changes when the file changes; -1 when it isn't there. Never fails.
std::int64_t Stamp(const Text &theFile);
// Makes one directory below an existing one; false when it is there already or cannot be made.
bool MakeDirectory(const Text &theDir);
}  // namespace Files
