#include "base/Failure.h"
#include "disk/Io.h"
#include "disk/IoContent.h"
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{
[[noreturn]] void FailHere(const Text &thePath)
{
    Fail(std::strerror(errno), thePath);
}

void CloseHandle(int &theHandle, const Text &thePath)
{
    // Some file systems report only now that what was written is lost.
    if (close(std::exchange(theHandle, -1)) != 0)
        FailHere(thePath);
}

void WriteAll(int theHandle, const char *theBytes, std::size_t theCount, const Text &thePath)
{
    while (theCount > 0) {
        const ssize_t written = write(theHandle, theBytes, theCount);
        if (written < 0 && errno != EINTR)
            FailHere(thePath);
        if (written > 0) {
            theBytes += written;
            theCount -= static_cast<std::size_t>(written);
        }
    }
}

// A plain file, open for reading.
class OpenFile
{
public:
    explicit OpenFile(const Text &theFile) : path(theFile)
    {
        // Opened without waiting, since what was a file a moment ago may be a pipe now.
        handle = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (handle < 0)
            FailHere(path);
        struct stat facts;
        if (fstat(handle, &facts) != 0 || !S_ISREG(facts.st_mode)) {
            close(handle);
            Fail("not a plain file", path);
        }
        size = facts.st_size;
    }
    ~OpenFile() { close(handle); }
    OpenFile(const OpenFile &) = delete;
    OpenFile &operator=(const OpenFile &) = delete;

    // Reads up to theCount bytes; 0 at the end.
    std::size_t Read(char *theBytes, std::size_t theCount) const
    {
        for (;;) {
            const ssize_t got = read(handle, theBytes, theCount);
            if (got >= 0)
                return static_cast<std::size_t>(got);
            if (errno != EINTR)
                FailHere(path);
        }
    }
    std::int64_t Size() const { return size; }
    int Handle() const { return handle; }
    const Text &Path() const { return path; }

private:
    const Text &path;
    int handle = -1;
    std::int64_t size = 0;
};

constexpr std::int64_t blockSize = 1 << 16;

// Copies up to theCount bytes from where theSource stands; less when it ends before.
void CopyBytes(const OpenFile &theSource, int theTarget, std::int64_t theCount, const Text &theTargetPath)
{
    static thread_local std::vector<char> block(blockSize);
    while (theCount > 0) {
        const std::size_t got = theSource.Read(block.data(), static_cast<std::size_t>(std::min(theCount, blockSize)));
        if (got == 0)
            return;
        WriteAll(theTarget, block.data(), got, theTargetPath);
        theCount -= static_cast<std::int64_t>(got);
    }
}

// Has the system itself copy theCount bytes at thePos. False when it can't do that between these files.
bool CopyBySystem([[maybe_unused]] const OpenFile &theSource, [[maybe_unused]] int theTarget,
    [[maybe_unused]] std::int64_t thePos, [[maybe_unused]] std::int64_t theCount,
    [[maybe_unused]] const Text &theTargetPath)
{
#ifdef __linux__
    off64_t from = thePos, to = thePos;
    while (theCount > 0) {
        const ssize_t copied =
            copy_file_range(theSource.Handle(), &from, theTarget, &to, static_cast<std::size_t>(theCount), 0);
        if (copied == 0)
            return true;
        if (copied < 0 && errno != EINTR) {
            if (from == thePos && errno != ENOSPC && errno != EDQUOT && errno != EIO)
                return false;
            FailHere(theTargetPath);
        }
        theCount -= std::max<std::int64_t>(copied, 0);
    }
    return true;
#else
    return false;
#endif
}

// Copies a large file piece by piece, so that its holes stay holes.
void CopyPieces(const OpenFile &theSource, int theTarget, const Text &theTargetPath)
{
    const int source = theSource.Handle();
    for (std::int64_t at = 0; at < theSource.Size();) {
        const off_t data = lseek(source, at, SEEK_DATA);
        if (data < 0 && errno == ENXIO)
            break;  // only a hole is left
        const off_t hole = data < 0 ? -1 : lseek(source, data, SEEK_HOLE);
        const std::int64_t from = data < 0 ? at : data;
        const std::int64_t end = hole < 0 ? theSource.Size() : std::min<std::int64_t>(hole, theSource.Size());
        if (!CopyBySystem(theSource, theTarget, from, end - from, theTargetPath)) {
            if (lseek(source, from, SEEK_SET) < 0)
                FailHere(theSource.Path());
            if (lseek(theTarget, from, SEEK_SET) < 0)
                FailHere(theTargetPath);
            CopyBytes(theSource, theTarget, end - from, theTargetPath);
        }
        at = end;
    }
    if (ftruncate(theTarget, theSource.Size()) != 0)
        FailHere(theTargetPath);
}

// Whether files can be made without a name, and be given one later.
bool CanMakeNameless()
{
#ifdef O_TMPFILE
    static const bool Result = access("/proc/self/fd", X_OK) == 0;
    return Result;
#else
    return false;
#endif
}

Text DirectoryOf(const Text &theFile)
{
    return theFile.substr(0, theFile.rfind('/') + 1);
}

// A hidden name beside theFile. It depends on nothing but the file's own name: what a killed process has left behind
// makes way for the next file of that name.
Text HiddenNameFor(const Text &theFile)
{
    char name[40];
    std::snprintf(name, sizeof name, ".ferncastle-%016zx.part", std::hash<Text>()(theFile));
    return DirectoryOf(theFile) + name;
}

// What a name stands for, with a link to a file taken for a file; links are not followed to find out that it is there.
Io::Kind KindOfName(const Text &thePath)
{
    struct stat facts;
    if (lstat(thePath.c_str(), &facts) != 0)
        return Io::Kind::None;
    return S_ISREG(facts.st_mode) ? Io::Kind::File : Io::Kind::Other;
}

// Gives a file without a name the name theFile.
bool LinkNameless(int theHandle, const Text &theFile)
{
#ifdef AT_EMPTY_PATH
    // Older systems allow this shorter way only to root.
    static std::atomic<bool> isAllowed = true;
    if (isAllowed) {
        if (linkat(theHandle, "", AT_FDCWD, theFile.c_str(), AT_EMPTY_PATH) == 0)
            return true;
        // This may also mean that the directory is not there. Then the other way fails too.
        if (errno != ENOENT)
            return false;
    }
#endif
    char self[40];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", theHandle);
    const bool Result = linkat(AT_FDCWD, self, AT_FDCWD, theFile.c_str(), AT_SYMLINK_FOLLOW) == 0;
#ifdef AT_EMPTY_PATH
    if (Result)
        isAllowed = false;
#endif
    return Result;
}

// A file that is being written. It gets its name only when it is published, so that no incomplete file is ever visible.
// If it is never published, or the process is killed, at most a hidden temporary file remains, which the next draft
// overwrites.
class Draft
{
public:
    // Opens a file in the directory of theFile. With willReplace it replaces a file of that name when it is published,
    // and takes over its permissions.
    Draft(const Text &theFile, bool willReplace);
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    ~Draft();

    void Write(std::string_view theContent) { WriteAll(handle, theContent.data(), theContent.size(), file); }
    void CopyFrom(const Text &theSource);
    // Gives the file its name. A failure when something has that name and isn't to be replaced.
    void Publish();

private:
    const Text &file;
    Text hidden;  // its name meanwhile, where it has one
    bool isReplacement;
    int handle = -1;
};

Draft::Draft(const Text &theFile, bool willReplace) : file(theFile), isReplacement(willReplace)
{
#ifdef O_TMPFILE
    if (!isReplacement && CanMakeNameless()) {
        handle = open(DirectoryOf(file).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
        if (handle < 0 && errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL)
            FailHere(file);
    }
#endif
    if (handle >= 0)
        return;
    hidden = HiddenNameFor(file);
    const auto create = [&] {
        return open(hidden.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    };
    handle = create();
    if (handle < 0 && errno == EEXIST && unlink(hidden.c_str()) == 0)
        handle = create();
    if (handle < 0)
        FailHere(file);
    // The permissions of what it replaces stay, as far as the system lets them.
    struct stat old;
    if (isReplacement && lstat(file.c_str(), &old) == 0 && S_ISREG(old.st_mode))
        (void)fchmod(handle, old.st_mode & 07777);
}

Draft::~Draft()
{
    if (handle >= 0)
        close(handle);
    if (!hidden.empty())
        unlink(hidden.c_str());
}

void Draft::CopyFrom(const Text &theSource)
{
    const OpenFile source(theSource);
    if (source.Size() <= blockSize)
        CopyBytes(source, handle, source.Size(), file);
    else
        CopyPieces(source, handle, file);
}

void Draft::Publish()
{
    if (hidden.empty()) {
        if (!LinkNameless(handle, file))
            FailHere(file);
        try {
            CloseHandle(handle, file);
        } catch (const RuntimeFailure &) {
            unlink(file.c_str());  // what was written may be lost
            throw;
        }
        return;
    }
    CloseHandle(handle, file);
    // Where nothing is to be replaced, a link says so if something has got there first.
    const bool isLinked = !isReplacement && link(hidden.c_str(), file.c_str()) == 0;
    if (!isLinked && !isReplacement && errno == EEXIST)
        FailHere(file);
    if (!isLinked) {
        if (rename(hidden.c_str(), file.c_str()) != 0)
            FailHere(file);
        hidden.clear();
    }
}
}  // namespace

namespace Io
{
Text Read(const Text &theFile)
{
    return IoContent::ReadWhole(OpenFile(theFile), theFile);
}

void Write(const Text &theFile, const Text &theContent)
{
    IoContent::WriteWhole(Draft(theFile, KindOfName(theFile) != Kind::None), theContent);
}

void Write(const Text &theFile, const Pieces &thePieces)
{
    IoContent::WritePieces(Draft(theFile, KindOfName(theFile) != Kind::None), thePieces);
}

void WriteNew(const Text &theFile, const Text &theContent)
{
    IoContent::WriteWhole(Draft(theFile, false), theContent);
}

void Append(const Text &theFile, const Text &theContent)
{
    int file = open(theFile.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_APPEND | O_CLOEXEC, 0666);
    struct stat facts;
    // The same file may stand elsewhere under another name, and is to stay as it is there.
    const bool isShared = file >= 0 && fstat(file, &facts) == 0 && facts.st_nlink > 1;
    if (isShared || (file < 0 && (errno == ELOOP || errno == EACCES) && KindOf(theFile) == Kind::File)) {
        if (isShared)
            close(file);
        Write(theFile, Read(theFile) + theContent);
        return;
    }
    if (file < 0)
        FailHere(theFile);
    try {
        WriteAll(file, theContent.data(), theContent.size(), theFile);
    } catch (const RuntimeFailure &) {
        close(file);
        throw;
    }
    CloseHandle(file, theFile);
}

void Copy(const Text &theSource, const Text &theTarget)
{
    if (IdentityOf(theSource) == IdentityOf(theTarget) && KindOfName(theTarget) == Kind::File)
        return;  // a file onto itself
    Draft draft(theTarget, KindOfName(theTarget) != Kind::None);
    draft.CopyFrom(theSource);
    draft.Publish();
}

bool EndsInLineFeed(const Text &theFile)
{
    const OpenFile file(theFile);
    char last = '\n';
    if (file.Size() > 0 && pread(file.Handle(), &last, 1, file.Size() - 1) != 1)
        FailHere(theFile);
    return last == '\n';
}
}  // namespace Io
