#include "base/Failure.h"
#include "disk/Io.h"
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <exception>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>
#ifdef __APPLE__
#include <mach-o/dyld.h>
#else
#include <mntent.h>
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
    ~Opened()
    {
        if (handle >= 0)
            close(handle);
    }
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

    void CutTo(std::int64_t theSize) const
    {
        if (ftruncate(handle, theSize) != 0)
            FailHere(path);
    }

    // Closes what was written: some file systems tell only then that it could not be.
    void Finish()
    {
        if (close(std::exchange(handle, -1)) != 0)
            FailHere(path);
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

Io::Kind KindOfMode(mode_t theMode)
{
    return S_ISREG(theMode) ? Io::Kind::File : S_ISDIR(theMode) ? Io::Kind::Directory : Io::Kind::Other;
}

Io::Identity IdentityOfFacts(const struct stat &theFacts)
{
    return {static_cast<std::uint64_t>(theFacts.st_dev), static_cast<std::uint64_t>(theFacts.st_ino)};
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

constexpr int newOrOld = O_WRONLY | O_CREAT | O_NOFOLLOW;
}  // namespace

namespace Io
{
DirectoryFacts LookAt(const Text &theDir)
{
    struct stat facts;
    if (stat(theDir.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode))
        return {};
    return {ChangeTime(facts), IdentityOfFacts(facts)};
}

std::int64_t FileStamp(const Text &theFile)
{
    struct stat facts;
    return stat(theFile.c_str(), &facts) != 0 ? -1 : ChangeTime(facts) ^ (facts.st_size << 1);
}

Kind KindOf(const Text &thePath)
{
    struct stat facts;
    return stat(thePath.c_str(), &facts) != 0 ? Kind::None : KindOfMode(facts.st_mode);
}

Identity IdentityOf(const Text &thePath)
{
    struct stat facts;
    return stat(thePath.c_str(), &facts) != 0 ? Identity() : IdentityOfFacts(facts);
}

Text RealPath(const Text &thePath)
{
    char *real = realpath(thePath.c_str(), nullptr);
    const Text Result = real ? real : "";
    std::free(real);
    return Result;
}

bool ReadDirectory(const Text &theDir, std::vector<Listed> &theNames)
{
    const std::unique_ptr<DIR, int (*)(DIR *)> dir(opendir(theDir.c_str()), closedir);
    if (!dir)
        return false;
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
        }
        theNames.push_back(std::move(one));
    }
    return true;
}

Text Read(const Text &theFile)
{
    const Opened file(theFile, O_RDONLY);
    Text Result;
    try {
        Result.resize(static_cast<std::size_t>(file.Facts().st_size));
    } catch (const std::exception &) {
        Fail("the file is too large", theFile);
    }
    std::size_t done = 0;
    while (done < Result.size()) {
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
    // Written in place and cut afterwards: a file that is emptied first is taken for a precious one, and its bytes are
    // sent to the disk as soon as it is closed.
    Opened file(theFile, newOrOld);
    const struct stat before = file.Facts();
    if (before.st_nlink > 1) {
        // The same file stands elsewhere under another name, and is to stay as it is there.
        Delete(theFile);
        Write(theFile, theContent);
        return;
    }
    file.WriteAll(theContent);
    if (before.st_size > static_cast<std::int64_t>(theContent.size()))
        file.CutTo(static_cast<std::int64_t>(theContent.size()));
    file.Finish();
}

void MakeFile(const Text &theFile)
{
    Opened(theFile, newOrOld | O_EXCL).Finish();
}

void Append(const Text &theFile, const Text &theContent)
{
    Opened file(theFile, newOrOld | O_APPEND);
    if (file.Facts().st_nlink > 1) {
        // The same file stands elsewhere under another name, and is to stay as it is there.
        const Text content = Read(theFile);
        Delete(theFile);
        Write(theFile, content + theContent);
        return;
    }
    file.WriteAll(theContent);
    file.Finish();
}

void Copy(const Text &theSource, const Text &theTarget)
{
    const Opened source(theSource, O_RDONLY);
    if (IdentityOf(theSource) == IdentityOf(theTarget))
        return;  // a file onto itself
    Opened target(theTarget, newOrOld);
    const struct stat before = target.Facts();
    if (before.st_nlink > 1) {
        Delete(theTarget);
        Copy(theSource, theTarget);
        return;
    }
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
    if (before.st_size > done)
        target.CutTo(done);
    target.Finish();
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
#ifdef __APPLE__
    std::vector<Listed> names;
    ReadDirectory("/Volumes", names);
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
