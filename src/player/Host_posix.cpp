#include "base/Failure.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "player/Host.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/ioctl.h>
#include <unistd.h>

namespace fs = std::filesystem;

static volatile std::sig_atomic_t interrupted = 0;

namespace Host
{
std::vector<Text> WordsOf(int theCount, char **theWords)
{
    return {theWords + 1, theWords + theCount};
}

Text FullPath(const Text &thePath)
{
    std::error_code error;
    Text Result = fs::absolute(thePath, error).lexically_normal().string();
    while (Result.size() > 1 && Result.back() == '/')
        Result.pop_back();
    return Result;
}

Text ParentOf(const Text &thePath)
{
    return fs::path(thePath).parent_path().string();
}

bool CanRead(const Text &thePath)
{
    return access(thePath.c_str(), Io::KindOf(thePath) == Io::Kind::Directory ? R_OK | X_OK : R_OK) == 0;
}

static void WriteInto(const Text &theFile, const Text &theContent, int theFlags)
{
    const int file = open(theFile.c_str(), O_WRONLY | O_CLOEXEC | theFlags, 0666);
    bool isDone = file >= 0;
    for (std::size_t at = 0; isDone && at < theContent.size();) {
        const ssize_t written = write(file, theContent.data() + at, theContent.size() - at);
        isDone = written >= 0 || errno == EINTR;
        at += static_cast<std::size_t>(std::max<ssize_t>(written, 0));
    }
    const int reason = errno;
    if (file >= 0 && close(file) != 0 && isDone)
        Fail(std::strerror(errno), theFile);
    if (!isDone)
        Fail(std::strerror(reason), theFile);
}

void WriteFile(const Text &theFile, const Text &theContent)
{
    WriteInto(theFile, theContent, O_CREAT | O_TRUNC);
}

void TryFile(const Text &theFile)
{
    const Io::Kind kind = Io::KindOf(theFile);
    // Who reads a pipe would take its closing for the end.
    if (kind == Io::Kind::Other) {
        if (access(theFile.c_str(), W_OK) != 0)
            Fail(std::strerror(errno), theFile);
        return;
    }
    WriteInto(theFile, "", kind == Io::Kind::None ? O_CREAT : 0);
    if (kind == Io::Kind::None)
        Io::Delete(Io::RealPath(theFile));
}

void MakeLink(const Text &theTarget, const Text &theLink)
{
    if (symlink(theTarget.c_str(), theLink.c_str()) != 0)
        Fail(std::strerror(errno), theLink);
}

std::size_t LongestName(const Text &theDir)
{
    const long longest = pathconf(theDir.c_str(), _PC_NAME_MAX);
    return longest > 0 ? static_cast<std::size_t>(longest) : 255;
}

std::size_t LongestPath()
{
    return PATH_MAX - 1;
}

std::int64_t ChangeTime(const Text &theFile)
{
    std::error_code error;
    return fs::last_write_time(theFile, error).time_since_epoch().count();
}

std::int64_t BytesSince(const Text &theDir, std::int64_t theTime)
{
    std::int64_t Result = 0;
    std::error_code error, none;
    for (fs::recursive_directory_iterator at(theDir, error), end; !error && at != end; at.increment(error))
        if (at->is_regular_file(none) && !at->is_symlink(none) &&
            at->last_write_time(none).time_since_epoch().count() >= theTime)
            Result += static_cast<std::int64_t>(at->file_size(none));
    return Result;
}

bool IsTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

std::size_t Columns()
{
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

void HoldInterrupts()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, [](int theSignal) { interrupted = theSignal; });
    // Whoever reads the output may stop early; the temporary directory is removed all the same.
    std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted()
{
    return interrupted != 0;
}

TempDir::TempDir(const Text &theAvoided)
{
    std::error_code error;
    const Text avoided = theAvoided.empty() ? "" : fs::canonical(theAvoided, error).string() + '/';
    for (const fs::path &above : {fs::temp_directory_path(error), fs::path("/var/tmp"), fs::path("/dev/shm")}) {
        if (!avoided.empty() && (fs::canonical(above, error).string() + '/').starts_with(avoided))
            continue;
        path = FullPath((above / "ferncastle-XXXXXX").string());
        if (mkdtemp(path.data())) {
            // The cache may know the directory above as it was before.
            if (auto *known = DirectoryCache::FindDir(Paths::FromHost(ParentOf(path))))
                known->Distrust();
            return;
        }
    }
    Fail("cannot make a temporary directory", path);
}

TempDir::~TempDir()
{
    std::error_code error;
    fs::remove_all(path, error);
}
}  // namespace Host
