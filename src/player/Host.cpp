#include "player/Host.h"
#include "base/Failure.h"
#include "disk/DirectoryCache.h"
#include "disk/Paths.h"
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sys/ioctl.h>
#include <unistd.h>

namespace fs = std::filesystem;

static volatile std::sig_atomic_t interrupted = 0;

namespace Host
{
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

bool IsDirectory(const Text &thePath)
{
    std::error_code error;
    return fs::is_directory(thePath, error);
}

bool CanRead(const Text &thePath)
{
    return access(thePath.c_str(), IsDirectory(thePath) ? R_OK | X_OK : R_OK) == 0;
}

bool CanWriteIn(const Text &theDir)
{
    return access(theDir.c_str(), W_OK | X_OK) == 0;
}

std::vector<Text> NamesIn(const Text &theDir)
{
    std::vector<Text> Result;
    std::error_code error;
    for (fs::directory_iterator at(theDir, error), end; !error && at != end; at.increment(error))
        Result.push_back(at->path().filename().string());
    return Result;
}

bool WriteFile(const Text &theFile, const Text &theContent)
{
    std::ofstream file(theFile, std::ios::binary);
    file << theContent;
    file.close();
    return !file.fail();
}

bool CopyFile(const Text &theSource, const Text &theTarget)
{
    std::error_code error;
    return fs::copy_file(theSource, theTarget, error);
}

bool MakeLink(const Text &theTarget, const Text &theLink)
{
    std::error_code error;
    fs::create_symlink(theTarget, theLink, error);
    return !error;
}

bool MakeDirectory(const Text &theDir)
{
    std::error_code error;
    return fs::create_directory(theDir, error);
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
