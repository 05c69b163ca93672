// The calls that differ from one operating system to the next. Io_posix.cpp, for Linux and macOS, and Io_windows.cpp
// have those for names and directories, IoContent_posix.cpp and IoContent_windows.cpp those that read and write files.
// Paths are the host's own here, with "/" between their elements: /dir/file, on Windows C:/dir/file. Everything that
// fails throws a RuntimeFailure that names the path.
#pragma once
#include "base/Text.h"
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace Io
{
enum class Kind { None, File, Directory, Other };

struct Listed {
    Text Name;
    Kind What;
    bool IsLink;
    bool IsHidden = false;  // by an attribute that the file system has for that
};

// What a path is, links followed.
Kind KindOf(const Text &thePath);
// Identifies a directory, links followed. It is equal for all names of the same directory, and 0, 0 when there is none.
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
// Appends all names in a directory but "." and ".." to theNames, as far as they can be read.
void ReadDirectory(const Text &theDir, std::vector<Listed> &theNames);

// The whole content of a plain file.
Text Read(const Text &theFile);
// Replaces a file, or a link to one, by a file of that content, or makes the file. A reader sees the old content or
// the new one, never a part. When it fails, the old content stays.
void Write(const Text &theFile, const Text &theContent);
// The same for a content that comes in pieces and may take more memory than there is: thePieces hands them over. A
// failure of thePieces goes on to the caller, and the old content stays.
using Pieces = std::function<void(const std::function<void(std::string_view)> &)>;
void Write(const Text &theFile, const Pieces &thePieces);
// Makes a new file in one step. A failure when something has that name.
void WriteNew(const Text &theFile, const Text &theContent);
// Adds to the end of a file, or makes it.
void Append(const Text &theFile, const Text &theContent);
// Copies the content of a plain file alone, else like Write. A file onto itself stays as it is.
void Copy(const Text &theSource, const Text &theTarget);
void Delete(const Text &theFile);
// Fails also when there is something of that name.
void MakeDirectory(const Text &theDir);
// The size of a file, and a stamp that changes when the file changes; both are -1 when it isn't there.
struct FileFacts {
    std::int64_t Stamp = -1;
    std::int64_t Size = -1;
};
FileFacts LookAtFile(const Text &theFile);
// True when the file is empty or its last byte is LF.
bool EndsInLineFeed(const Text &theFile);
// Bytes free to this user where theDir lies; 0 when there is hardly room for further files.
std::int64_t FreeSpace(const Text &theDir);
// Whether this user may make files in theDir.
bool CanWriteIn(const Text &theDir);
// The directory of the running program.
Text ProgramDirectory();
// The host's drives: a letter each, ascending, and the directory that it stands for, without a final slash.
std::vector<std::pair<char, Text>> Drives();
}  // namespace Io
