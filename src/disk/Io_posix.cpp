#include "base/Failure.h"
#include "disk/Claim.h"
#include "disk/Io.h"
#include "disk/Losses.h"
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#ifdef __APPLE__
#include <climits>
#include <mach-o/dyld.h>
#else
#include <cstdio>
#include <mntent.h>
#endif

namespace
{
[[noreturn]] void FailHere(const Text &thePath)
{
    Fail(std::strerror(errno), thePath);
}

Io::Kind KindOfMode(mode_t theMode)
{
    return S_ISREG(theMode) ? Io::Kind::File : S_ISDIR(theMode) ? Io::Kind::Directory : Io::Kind::Other;
}

Io::Identity IdentityOfFacts(const struct stat &theFacts)
{
    return {static_cast<std::uint64_t>(theFacts.st_dev), static_cast<std::uint64_t>(theFacts.st_ino)};
}

// The facts of a path, links followed. That nothing is there, or nothing that may be looked at, is an answer; where the
// system can't say, the user is told.
bool Look(const Text &thePath, struct stat &theFacts)
{
    if (stat(thePath.c_str(), &theFacts) == 0)
        return true;
    for (const int answer : {ENOENT, ENOTDIR, ELOOP, ENAMETOOLONG, EACCES})
        if (errno == answer)
            return false;
    Losses::Note({std::strerror(errno), thePath});
    return false;
}

std::int64_t ChangeTime(const struct stat &theFacts)
{
#ifdef __APPLE__
    const timespec &time = theFacts.st_mtimespec;
#else
    const timespec &time = theFacts.st_mtim;
#endif
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

}  // namespace

namespace Io
{
DirectoryFacts LookAt(const Text &theDir)
{
    struct stat facts;
    if (!Look(theDir, facts) || !S_ISDIR(facts.st_mode))
        return {};
    return {ChangeTime(facts), IdentityOfFacts(facts)};
}

FileFacts LookAtFile(const Text &theFile)
{
    struct stat facts;
    if (!Look(theFile, facts))
        return {};
    return {ChangeTime(facts) ^ (facts.st_size << 1), facts.st_size};
}

Kind KindOf(const Text &thePath)
{
    struct stat facts;
    return Look(thePath, facts) ? KindOfMode(facts.st_mode) : Kind::None;
}

Identity IdentityOf(const Text &thePath)
{
    struct stat facts;
    return Look(thePath, facts) ? IdentityOfFacts(facts) : Identity();
}

Text RealPath(const Text &thePath)
{
    char *real = realpath(thePath.c_str(), nullptr);
    const Text Result = real ? real : "";
    std::free(real);
    return Result;
}

void ReadDirectory(const Text &theDir, std::vector<Listed> &theNames)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(opendir(theDir.c_str()), closedir);
    if (!dir)
        FailHere(theDir);
    for (;;) {
        errno = 0;
        const dirent *row = readdir(dir.get());
        if (!row)
            break;
        const Text name = row->d_name;
        if (name == "." || name == "..")
            continue;
        Listed one{name, Kind::Other, row->d_type == DT_LNK};
        if (row->d_type == DT_REG)
            one.What = Kind::File;
        else if (row->d_type == DT_DIR)
            one.What = Kind::Directory;
        else if (row->d_type == DT_LNK || row->d_type == DT_UNKNOWN) {
            const Text path = theDir + '/' + name;
            struct stat facts;
            one.IsLink = lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode);
            one.What = KindOf(path);
        }
        theNames.push_back(std::move(one));
    }
    if (errno != 0)
        FailHere(theDir);
}

void Delete(const Text &theFile)
{
    if (unlink(theFile.c_str()) != 0)
        FailHere(theFile);
}

void MakeDirectory(const Text &theDir)
{
    if (mkdir(theDir.c_str(), 0777) != 0)
        FailHere(theDir);
}

std::int64_t FreeSpace(const Text &theDir)
{
    struct statvfs facts;
    if (statvfs(theDir.c_str(), &facts) != 0)
        FailHere(theDir);
    // File systems without a table of files report neither.
    if (facts.f_files > 0 && facts.f_favail < 1000)
        return 0;
    return static_cast<std::int64_t>(facts.f_bavail) * static_cast<std::int64_t>(facts.f_frsize);
}

bool CanWriteIn(const Text &theDir)
{
    return access(theDir.c_str(), W_OK | X_OK) == 0;
}

// All processes share a lock on the directory itself. The system drops it with the process, and programs that the
// process starts don't inherit it. Only a process that is alone gets the directory to itself, for a moment.
bool Claim(const Text &theDir)
{
    const int directory = open(theDir.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return true;
    const bool isTaken = flock(directory, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    flock(directory, LOCK_SH | LOCK_NB);
    return !isTaken;  // the directory stays open, and the lock with it
}

Text ProgramDirectory()
{
#ifdef __APPLE__
    char told[PATH_MAX];
    std::uint32_t size = sizeof told;
    Text Result = RealPath(_NSGetExecutablePath(told, &size) == 0 ? told : ".");
#else
    Text Result = RealPath("/proc/self/exe");
#endif
    const std::size_t slash = Result.rfind('/');
    return slash == Text::npos || slash == 0 ? "/" : Result.substr(0, slash);
}

std::vector<std::pair<char, Text>> Drives()
{
    std::vector<std::pair<char, Text>> Result{{'c', ""}};
    std::vector<Text> volumes;
#ifdef __APPLE__
    std::vector<Listed> names;
    try {
        ReadDirectory("/Volumes", names);
    } catch (const RuntimeFailure &) {
        // There are no volumes.
    }
    for (const Listed &name : names)
        volumes.push_back("/Volumes/" + name.Name);
#else
    if (std::FILE *mounts = setmntent("/proc/self/mounts", "re")) {
        while (const mntent *mount = getmntent(mounts))
            for (const char *root : {"/media/", "/mnt/", "/run/media/"})
                if (std::strncmp(mount->mnt_dir, root, std::strlen(root)) == 0)
                    volumes.emplace_back(mount->mnt_dir);
        endmntent(mounts);
    }
#endif
    std::sort(volumes.begin(), volumes.end());
    for (const Text &volume : volumes)
        if (Result.back().first < 'z')
            Result.emplace_back(static_cast<char>(Result.back().first + 1), volume);
    return Result;
}
}  // namespace Io
