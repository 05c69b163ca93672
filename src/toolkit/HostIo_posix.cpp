#include "toolkit/Failure.h"
#include "toolkit/HostIo.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#ifdef __APPLE__
#include <mach-o/dyld.h>
#endif

namespace
{
[[noreturn]] void FailHere(const Text &thePath)
{
    Fail(std::strerror(errno), thePath);
}

// An open file that is closed at the end of its block.
class Opened
{
public:
    Opened(const Text &theFile, int theFlags) : path(theFile), handle(open(theFile.c_str(), theFlags | O_CLOEXEC, 0666))
    {
        if (handle < 0)
            FailHere(path);
    }
    ~Opened() { close(handle); }
    Opened(const Opened &) = delete;
    Opened &operator=(const Opened &) = delete;

    operator int() const { return handle; }

    struct stat Facts() const
    {
        struct stat Result;
        if (fstat(handle, &Result) != 0)
            FailHere(path);
        return Result;
    }

    void WriteAll(const Text &theContent) const
    {
        std::size_t done = 0;
        while (done < theContent.size()) {
            const ssize_t written = write(handle, theContent.data() + done, theContent.size() - done);
            if (written < 0 && errno != EINTR)
                FailHere(path);
            if (written > 0)
                done += static_cast<std::size_t>(written);
        }
    }

private:
    const Text &path;
    int handle;
};

void CutTo(const Opened &theFile, const Text &thePath, std::int64_t theSize)
{
    if (theFile.Facts().st_size > theSize && ftruncate(theFile, theSize) != 0)
        FailHere(thePath);
}

HostIo::Kind KindOfMode(mode_t theMode)
{
    return S_ISREG(theMode) ? HostIo::Kind::File : S_ISDIR(theMode) ? HostIo::Kind::Directory : HostIo::Kind::Other;
}

Text RealPath(const Text &thePath)
{
    char *real = realpath(thePath.c_str(), nullptr);
    const Text Result = real ? real : "";
    std::free(real);
    return Result;
}

constexpr int newOrOld = O_WRONLY | O_CREAT | O_NOFOLLOW;
}  // namespace

namespace HostIo
{
std::int64_t ChangeStamp(const Text &thePath)
{
    struct stat facts;
    if (stat(thePath.c_str(), &facts) != 0)
        return -1;
#ifdef __APPLE__
    const timespec &time = facts.st_mtimespec;
#else
    const timespec &time = facts.st_mtim;
#endif
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

Kind KindOf(const Text &thePath)
{
    struct stat facts;
    return stat(thePath.c_str(), &facts) != 0 ? Kind::None : KindOfMode(facts.st_mode);
}

bool ReadDirectory(const Text &theDir, std::vector<Listed> &theNames)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(opendir(theDir.c_str()), closedir);
    if (!dir)
        return false;
    Text real;
    while (const dirent *row = readdir(dir.get())) {
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
            if (one.IsLink && one.What == Kind::Directory) {
                if (real.empty())
                    real = RealPath(theDir) + '/';
                Text target = RealPath(path);
                if (target.empty() || target.back() != '/')
                    target += '/';
                if (real.compare(0, target.size(), target) == 0)
                    one.What = Kind::Other;
            }
        }
        theNames.push_back(std::move(one));
    }
    return true;
}

Text Read(const Text &theFile)
{
    const Opened file(theFile, O_RDONLY);
    Text Result(static_cast<std::size_t>(file.Facts().st_size), '\0');
    std::size_t done = 0;
    for (;;) {
        // A file that grows meanwhile, or that tells no size, is read to its end all the same.
        if (done == Result.size())
            Result.resize(done + (done == 0 ? 4096 : 1));
        const ssize_t got = read(file, Result.data() + done, Result.size() - done);
        if (got < 0 && errno != EINTR)
            FailHere(theFile);
        if (got == 0)
            break;
        if (got > 0)
            done += static_cast<std::size_t>(got);
    }
    Result.resize(done);
    return Result;
}

void Write(const Text &theFile, const Text &theContent)
{
    // In place and cut afterwards: emptying a file first costs three times as much.
    const Opened file(theFile, newOrOld);
    file.WriteAll(theContent);
    CutTo(file, theFile, static_cast<std::int64_t>(theContent.size()));
}

void Append(const Text &theFile, const Text &theContent)
{
    const Opened file(theFile, newOrOld | O_APPEND);
    file.WriteAll(theContent);
}

void Copy(const Text &theSource, const Text &theTarget)
{
    const Opened source(theSource, O_RDONLY);
    const Opened target(theTarget, newOrOld);
    const struct stat from = source.Facts(), to = target.Facts();
    if (from.st_dev == to.st_dev && from.st_ino == to.st_ino)
        return;  // a file onto itself
    std::int64_t done = 0;
    char block[65536];
    for (;;) {
        const ssize_t got = read(source, block, sizeof block);
        if (got < 0 && errno != EINTR)
            FailHere(theSource);
        if (got == 0)
            break;
        for (ssize_t put = 0; put < got;) {
            const ssize_t written = write(target, block + put, static_cast<std::size_t>(got - put));
            if (written < 0 && errno != EINTR)
                FailHere(theTarget);
            if (written > 0)
                put += written;
        }
        if (got > 0)
            done += got;
    }
    CutTo(target, theTarget, done);
}

void Delete(const Text &theFile)
{
    if (unlink(theFile.c_str()) != 0)
        FailHere(theFile);
}

bool MakeDirectory(const Text &theDir)
{
    return mkdir(theDir.c_str(), 0777) == 0;
}

std::int64_t ReadableSize(const Text &theFile)
{
    return Opened(theFile, O_RDONLY).Facts().st_size;
}

bool EndsInLineFeed(const Text &theFile)
{
    const Opened file(theFile, O_RDONLY);
    const std::int64_t size = file.Facts().st_size;
    char last = '\n';
    if (size > 0 && pread(file, &last, 1, size - 1) != 1)
        FailHere(theFile);
    return last == '\n';
}

std::int64_t FreeSpace(const Text &theDir)
{
    struct statvfs facts;
    if (statvfs(theDir.c_str(), &facts) != 0)
        FailHere(theDir);
    return static_cast<std::int64_t>(facts.f_bavail) * static_cast<std::int64_t>(facts.f_frsize);
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
    if (std::FILE *mounts = std::fopen("/proc/self/mounts", "re")) {
        char device[PATH_MAX], place[PATH_MAX];
        while (std::fscanf(mounts, "%4095s %4095s %*[^\n]", device, place) == 2)
            for (const char *root : {"/media/", "/mnt/", "/run/media/"})
                if (std::strncmp(place, root, std::strlen(root)) == 0)
                    volumes.emplace_back(place);
        std::fclose(mounts);
    }
    std::sort(volumes.begin(), volumes.end());
    for (const Text &volume : volumes)
        if (Result.back().first < 'z')
            Result.emplace_back(static_cast<char>(Result.back().first + 1), volume);
    return Result;
}
}  // namespace HostIo
