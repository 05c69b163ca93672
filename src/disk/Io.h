// The calls that differ from one operating system to the next; Io_posix.cpp serves Linux and macOS.
// Paths are the host's own here. Everything that fails throws a RuntimeFailure that names the path.
#pragma once
#include "base/Text.h"
#include <functional>
#include <vector>

namespace Io
{
enum class Kind { None, File, Directory, Other };

struct Listed {
    Text Name;
    Kind What;
    bool IsLink;
};

// What a path is, links followed.
Kind KindOf(const Text &thePath);
// What tells one directory from another, links followed; two names of one directory give the same. 0, 0 when it isn't
// there.
using Identity = std::pair<std::uint64_t, std::uint64_t>;
Identity IdentityOf(const Text &thePath);
// When a directory last changed, in nanoseconds since 1970, and its identity; a time of -1 when there is no such
// directory.
struct DirectoryFacts {
    std::int64_t Changed = -1;
    Identity Id = {};
};
DirectoryFacts LookAt(const Text &theDir);
// thePath with all links followed; empty when it isn't there.
Text RealPath(const Text &thePath);
// All names in a directory but "." and ".."; false when it cannot be read.
bool ReadDirectory(const Text &theDir, std::vector<Listed> &theNames);

// The whole content of a file.
Text Read(const Text &theFile);
// Replaces the content of a file in place, or makes it. Never follows a link in the last element.
void Write(const Text &theFile, const Text &theContent);
// Makes an empty file; a failure when there is one.
void MakeFile(const Text &theFile);
// Adds to the end of a file, or makes it.
void Append(const Text &theFile, const Text &theContent);
// Copies content alone. The target's earlier content is gone.
void Copy(const Text &theSource, const Text &theTarget);
void Delete(const Text &theFile);
bool MakeDirectory(const Text &theDir);
// The size of a file that this process may read; a failure when it may not.
std::int64_t ReadableSize(const Text &theFile);
// Tells one state of a file from another; -1 when it isn't there.
std::int64_t FileStamp(const Text &theFile);
// True when the file is empty or its last byte is LF.
bool EndsInLineFeed(const Text &theFile);
// Bytes free to this user where theDir lies.
std::int64_t FreeSpace(const Text &theDir);
// The directory of the running program.
Text ProgramDirectory();
// The host's drives: a letter each and the directory that it stands for.
std::vector<std::pair<char, Text>> Drives();
}  // namespace Io
