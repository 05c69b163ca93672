// What the player asks of the host beside the program's own files: terminals, temporary directories, directory trees.
// All paths are the host's, in the form of disk/Io.h. Host_posix.cpp is for Linux and macOS.
#pragma once
#include "base/Text.h"
#include <vector>

namespace Host
{
// The words of the command line behind the program's name, in UTF-8. Called first.
std::vector<Text> WordsOf(int theCount, char **theWords);
// A full path without "." and "..", and without a final slash.
Text FullPath(const Text &thePath);
// The directory of a full path.
Text ParentOf(const Text &thePath);
bool CanRead(const Text &thePath);
// Writes into a file of the user as "> FILE" does: a pipe, a device and a link stay what they are. TryFile only finds
// out whether that can be done, and leaves nothing behind. Both fail with a run-time failure.
void WriteFile(const Text &theFile, const Text &theContent);
void TryFile(const Text &theFile);
// Makes theLink stand for theTarget, a file or a directory: by a link, or by a copy where there are no links. Fails
// with a run-time failure.
void MakeLink(const Text &theTarget, const Text &theLink);
// How many bytes the names in a directory, and whole paths, may have.
std::size_t LongestName(const Text &theDir);
std::size_t LongestPath();
// When a file was last changed, in the clock of its file system; the lowest time when it isn't there.
std::int64_t ChangeTime(const Text &theFile);
// The bytes of all files in theDir and below that were not changed before theTime.
std::int64_t BytesSince(const Text &theDir, std::int64_t theTime);

// Whether standard error is a terminal, and how many characters fit into its lines.
bool IsTerminal();
std::size_t Columns();

// From now on an interrupt from the keyboard or a request to end only sets a flag.
void HoldInterrupts();
bool IsInterrupted();

// A new directory for temporary files, which is removed with all that is in it.
class TempDir
{
public:
    // Not below theAvoided, a full path.
    explicit TempDir(const Text &theAvoided = "");
    ~TempDir();
    TempDir(const TempDir &) = delete;
    TempDir &operator=(const TempDir &) = delete;
    const Text &Path() const { return path; }
    Text PathOf(const Text &theName) const { return path + '/' + theName; }

private:
    Text path;
};
}  // namespace Host
