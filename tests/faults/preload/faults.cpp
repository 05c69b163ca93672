// Loaded before the C library into the player, this lets one system call go wrong: the N-th of a kind on a path in or
// below FAULTS_BELOW. It prints nothing.
//   FAULTS_KIND    open (for reading), create (an open for writing), read, write, close (of what was written), mkdir,
//                  unlink, rename, link, stat, opendir, readdir; thread and new, which have no path
//   FAULTS_AT      N; "N+" means all from the N-th on
//   FAULTS_ERRNO   what the call fails with; 0 kills the process instead. A write does half its work first.
//   FAULTS_WRITES  a file that gets, for each call that makes, changes or deletes a file or a directory, its kind, a
//   blank,
//                  the path with links followed, and a NUL, also when the call fails
//   FAULTS_COUNT   a file that gets, at a normal end, how many calls there were of each kind, one line each
#include <atomic>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <new>
#include <pthread.h>
#include <string_view>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <type_traits>
#include <unistd.h>

namespace
{
const char *const kinds[] = {"open", "create", "read", "write", "close", "mkdir", "unlink", "rename", "link", "stat",
    "opendir", "readdir", "thread", "new"};
constexpr int kindCount = sizeof kinds / sizeof *kinds;
std::atomic<long> counts[kindCount];

// What the environment asks for. It is read at the first call of all, since others start before this library does.
struct Wish {
    const char *Below = std::getenv("FAULTS_BELOW");
    const char *Kind = std::getenv("FAULTS_KIND");
    const char *Count = std::getenv("FAULTS_COUNT");
    long At = 0;
    int Error = 0;
    bool AndLater = false;
    Wish()
    {
        if (const char *at = std::getenv("FAULTS_AT")) {
            char *end;
            At = std::strtol(at, &end, 10);
            AndLater = *end == '+';
        }
        if (const char *error = std::getenv("FAULTS_ERRNO"))
            Error = std::atoi(error);
    }
};
const Wish &TheWish()
{
    static const Wish wish;
    return wish;
}

struct AtEnd {
    ~AtEnd()
    {
        const char *name = TheWish().Count;
        if (std::FILE *file = name ? std::fopen(name, "w") : nullptr) {
            for (int i = 0; i < kindCount; ++i)
                std::fprintf(file, "%s %ld\n", kinds[i], counts[i].load());
            std::fclose(file);
        }
    }
} atEnd;

template <class Call> Call Real(Call, const char *theName)
{
    return reinterpret_cast<Call>(dlsym(RTLD_NEXT, theName));
}

bool IsBelow(const char *thePath)
{
    const char *below = TheWish().Below;
    const std::size_t size = below ? std::strlen(below) : 0;
    return size > 0 && std::strncmp(thePath, below, size) == 0 && (thePath[size] == '/' || thePath[size] == '\0');
}

bool IsBelow(int theHandle)
{
    char link[40], path[4096];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", theHandle);
    const ssize_t size = readlink(link, path, sizeof path - 1);
    path[size < 0 ? 0 : size] = '\0';
    return IsBelow(path);
}

// thePath, which may be relative to the directory theDir, as it will be taken: links in its directory are followed, the
// name itself only with isFollowed.
void NoteWrite(const char *theKind, int theDir, const char *thePath, bool isFollowed)
{
    static const char *const log = std::getenv("FAULTS_WRITES");
    if (!log || !thePath)
        return;
    char path[3 * PATH_MAX], real[PATH_MAX], line[4 * PATH_MAX];
    std::snprintf(path, sizeof path, theDir >= 0 && *thePath != '/' ? "/proc/self/fd/%d/%s" : "%.0d%s",
        theDir >= 0 && *thePath != '/' ? theDir : 0, thePath);
    char *const slash = std::strrchr(path, '/');
    int size = 0;
    if (isFollowed && realpath(path, real))
        size = std::snprintf(line, sizeof line, "%s %s", theKind, real);
    else if (slash)
        size = std::snprintf(line, sizeof line, "%s %s/%s", theKind,
            (*slash = '\0', realpath(slash == path ? "/" : path, real)) ? real : path, slash + 1);
    else
        size = std::snprintf(line, sizeof line, "%s %s/%s", theKind, realpath(".", real) ? real : "?", path);
    // Not by way of the calls of this library.
    const long file = syscall(SYS_openat, AT_FDCWD, log, O_WRONLY | O_APPEND | O_CREAT, 0666);
    syscall(SYS_write, file, line, static_cast<std::size_t>(size) + 1);
    syscall(SYS_close, file);
}

// Counts a call; true when it is to fail.
bool IsTurnOf(const char *theKind)
{
    int kind = 0;
    while (std::strcmp(kinds[kind], theKind) != 0)
        ++kind;
    const long number = ++counts[kind];
    const Wish &wish = TheWish();
    return wish.Kind && std::strcmp(wish.Kind, theKind) == 0 && (wish.AndLater ? number >= wish.At : number == wish.At);
}

// Fails a call, or kills the process. Returns true.
bool GoWrong()
{
    if (TheWish().Error == 0)
        std::raise(SIGKILL);
    errno = TheWish().Error;
    return true;
}

template <class Where> bool Fails(const char *theKind, Where theWhere)
{
    const int before = errno;
    if constexpr (!std::is_same_v<Where, int>)
        if (const std::string_view kind = theKind;
            kind == "mkdir" || kind == "unlink" || kind == "rename" || kind == "link")
            NoteWrite(theKind, AT_FDCWD, theWhere, false);
    const bool Result = IsBelow(theWhere) && IsTurnOf(theKind) && GoWrong();
    if (!Result)
        errno = before;
    return Result;
}

bool IsForWriting(int theFlags)
{
    return (theFlags & O_ACCMODE) != O_RDONLY;
}

// Whether a stream of that mode is for writing, as NOTE takes it.
int Opens(const char *theMode)
{
    return std::strpbrk(theMode, "wa+") ? 1 : -1;
}

int Open(const char *theName, const char *thePath, int theFlags, mode_t theMode)
{
    static const auto real = Real<int (*)(const char *, int, ...)>(nullptr, theName);
    if (IsForWriting(theFlags))
        NoteWrite("create", AT_FDCWD, thePath, (theFlags & (O_NOFOLLOW | O_EXCL)) == 0);
    return Fails(IsForWriting(theFlags) ? "create" : "open", thePath) ? -1 : real(thePath, theFlags, theMode);
}
}  // namespace

// Calls with a path first; MORE are the other parameters, NAMES their names.
#define FAIL_BY_PATH(KIND, NAME, MORE, NAMES, WHERE)                                                                   \
    int NAME MORE noexcept                                                                                             \
    {                                                                                                                  \
        static const auto real = Real<int(*) MORE>(nullptr, #NAME);                                                    \
        return Fails(KIND, WHERE) ? -1 : real NAMES;                                                                   \
    }

extern "C" {
FAIL_BY_PATH("mkdir", mkdir, (const char *path, mode_t mode), (path, mode), path)
FAIL_BY_PATH("unlink", unlink, (const char *path), (path), path)
FAIL_BY_PATH("rename", rename, (const char *from, const char *to), (from, to), to)
FAIL_BY_PATH("link", link, (const char *from, const char *to), (from, to), to)
FAIL_BY_PATH("link", linkat, (int a, const char *from, int b, const char *to, int flags), (a, from, b, to, flags), to)
FAIL_BY_PATH("stat", stat, (const char *path, struct stat *facts), (path, facts), path)
FAIL_BY_PATH("stat", lstat, (const char *path, struct stat *facts), (path, facts), path)
FAIL_BY_PATH("stat", fstat, (int handle, struct stat *facts), (handle, facts), handle)

int open(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t);
    va_end(more);
    return Open("open", path, flags, mode);
}

ssize_t read(int handle, void *bytes, size_t count)
{
    static const auto real = Real<ssize_t (*)(int, void *, size_t)>(nullptr, "read");
    return Fails("read", handle) ? -1 : real(handle, bytes, count);
}

ssize_t write(int handle, const void *bytes, size_t count)
{
    static const auto real = Real<ssize_t (*)(int, const void *, size_t)>(nullptr, "write");
    if (!IsBelow(handle) || !IsTurnOf("write"))
        return real(handle, bytes, count);
    (void)real(handle, bytes, count / 2);
    GoWrong();
    return -1;
}

int close(int handle)
{
    static const auto real = Real<int (*)(int)>(nullptr, "close");
    const bool fails = IsForWriting(fcntl(handle, F_GETFL)) && Fails("close", handle);
    const int error = errno, Result = real(handle);
    if (!fails)
        return Result;
    errno = error;
    return -1;
}

// The player uses none of these. They are here so that a write by way of them is noted, too.
#define NOTE(TYPE, KIND, NAME, MORE, NAMES, DIRECTORY, WHERE, IS_FOLLOWED)                                             \
    TYPE NAME MORE                                                                                                     \
    {                                                                                                                  \
        static const auto real = reinterpret_cast<TYPE(*) MORE>(dlsym(RTLD_NEXT, #NAME));                              \
        if (IS_FOLLOWED >= 0)                                                                                          \
            NoteWrite(KIND, DIRECTORY, WHERE, IS_FOLLOWED > 0);                                                        \
        return real NAMES;                                                                                             \
    }
NOTE(FILE *, "create", fopen, (const char *path, const char *mode), (path, mode), AT_FDCWD, path, Opens(mode))
NOTE(FILE *, "create", fopen64, (const char *path, const char *mode), (path, mode), AT_FDCWD, path, Opens(mode))
NOTE(int, "create", creat, (const char *path, mode_t mode), (path, mode), AT_FDCWD, path, 1)
NOTE(int, "mkdir", mkdirat, (int dir, const char *path, mode_t mode) noexcept, (dir, path, mode), dir, path, 0)
NOTE(int, "unlink", unlinkat, (int dir, const char *path, int flags) noexcept, (dir, path, flags), dir, path, 0)
NOTE(int, "unlink", rmdir, (const char *path) noexcept, (path), AT_FDCWD, path, 0)
NOTE(int, "unlink", remove, (const char *path) noexcept, (path), AT_FDCWD, path, 0)
NOTE(int, "rename", renameat, (int a, const char *from, int b, const char *to) noexcept, (a, from, b, to), b, to, 0)
NOTE(int, "link", symlink, (const char *to, const char *path) noexcept, (to, path), AT_FDCWD, path, 0)
NOTE(int, "link", symlinkat, (const char *to, int dir, const char *path) noexcept, (to, dir, path), dir, path, 0)
NOTE(int, "create", mkfifo, (const char *path, mode_t mode) noexcept, (path, mode), AT_FDCWD, path, 0)
NOTE(int, "change", truncate, (const char *path, off_t size) noexcept, (path, size), AT_FDCWD, path, 1)
NOTE(int, "change", chmod, (const char *path, mode_t mode) noexcept, (path, mode), AT_FDCWD, path, 1)
NOTE(int, "change", utimensat, (int dir, const char *path, const timespec *times, int flags) noexcept,
    (dir, path, times, flags), dir, path, 1)

int openat(int dir, const char *path, int flags, ...)
{
    static const auto real = Real<int (*)(int, const char *, int, ...)>(nullptr, "openat");
    va_list more;
    va_start(more, flags);
    const mode_t mode = va_arg(more, mode_t);
    va_end(more);
    if (IsForWriting(flags))
        NoteWrite("create", dir, path, true);
    return real(dir, path, flags, mode);
}

DIR *opendir(const char *path)
{
    static const auto real = Real<DIR *(*)(const char *)>(nullptr, "opendir");
    return Fails("opendir", path) ? nullptr : real(path);
}

dirent *readdir(DIR *dir)
{
    static const auto real = Real<dirent *(*)(DIR *)>(nullptr, "readdir");
    return Fails("readdir", dirfd(dir)) ? nullptr : real(dir);
}

int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*work)(void *), void *argument) noexcept
{
    static const auto real = Real<decltype(&pthread_create)>(nullptr, "pthread_create");
    return IsTurnOf("thread") ? TheWish().Error : real(thread, attributes, work, argument);
}
}

void *operator new(std::size_t theSize)
{
    void *Result = IsTurnOf("new") ? nullptr : std::malloc(theSize > 0 ? theSize : 1);
    return Result ? Result : throw std::bad_alloc();
}
void operator delete(void *theMemory) noexcept
{
    std::free(theMemory);
}
void operator delete(void *theMemory, std::size_t) noexcept
{
    std::free(theMemory);
}
