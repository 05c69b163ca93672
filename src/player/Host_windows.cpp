#include "base/Failure.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/IoPath_windows.h"
#include "disk/Paths.h"
#include "player/Host.h"
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <io.h>
#include <iostream>
#include <limits>
#include <windows.h>

// These need the one above.
#include <shellapi.h>
#include <winioctl.h>

using IoPath::ForSystem;

static std::atomic<bool> interrupted = false;

namespace
{
// Does theWork; false when it ends in a failure.
template <class Work> bool Succeeds(Work &&theWork)
{
    try {
        theWork();
    } catch (const RuntimeFailure &) {
        return false;
    }
    return true;
}

std::vector<Io::Listed> RowsOf(const Text &theDir)
{
    std::vector<Io::Listed> Result;
    Succeeds([&] { Io::ReadDirectory(theDir, Result); });
    return Result;
}

bool MayRead(const Text &thePath)
{
    const HANDLE file =
        CreateFileW(ForSystem(thePath).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    CloseHandle(file);
    return true;
}

// A directory that leads to another one. Unlike a symbolic link, every user may make one.
bool MakeJunction(const Text &theTarget, const Text &theLink)
{
    const std::wstring link = ForSystem(theLink), place = ForSystem(theTarget), real = L"\\??" + place.substr(3);
    if (!CreateDirectoryW(link.c_str(), nullptr))
        return false;
    // The head of the data: tag, size of what follows, and twice where a name begins and how long it is. Both names end
    // in a zero; the second is for people, and may be empty.
    struct Head {
        DWORD Tag;
        WORD Size, Reserved, NameAt, NameSize, ShownAt, ShownSize;
    };
    const auto bytes = static_cast<WORD>(real.size() * sizeof(wchar_t));
    const Head head{
        IO_REPARSE_TAG_MOUNT_POINT, static_cast<WORD>(bytes + 12), 0, 0, bytes, static_cast<WORD>(bytes + 2), 0};
    std::vector<char> data(sizeof head + bytes + 4);
    std::memcpy(data.data(), &head, sizeof head);
    std::memcpy(data.data() + sizeof head, real.data(), bytes);
    const HANDLE handle = CreateFileW(link.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
        FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    DWORD none = 0;
    const bool Result =
        handle != INVALID_HANDLE_VALUE && DeviceIoControl(handle, FSCTL_SET_REPARSE_POINT, data.data(),
                                              static_cast<DWORD>(data.size()), nullptr, 0, &none, nullptr);
    if (handle != INVALID_HANDLE_VALUE)
        CloseHandle(handle);
    if (!Result)
        RemoveDirectoryW(link.c_str());
    return Result;
}

// Removes a tree. A link in it goes, what it leads to stays.
void RemoveTree(const Text &theDir)
{
    for (const Io::Listed &row : RowsOf(theDir)) {
        const Text path = theDir + '/' + row.Name;
        if (row.What == Io::Kind::Directory && !row.IsLink)
            RemoveTree(path);
        else if (!RemoveDirectoryW(ForSystem(path).c_str()))
            Succeeds([&] { Io::Delete(path); });
    }
    RemoveDirectoryW(ForSystem(theDir).c_str());
}

BOOL WINAPI NoteInterrupt(DWORD theEvent)
{
    interrupted = true;
    // When this returns, the system ends the process whose window was closed.
    if (theEvent != CTRL_C_EVENT && theEvent != CTRL_BREAK_EVENT)
        Sleep(10'000);
    return TRUE;
}
}  // namespace

namespace Host
{
std::vector<Text> WordsOf(int, char **)
{
    // What is printed is UTF-8, and goes out as it is.
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    // In blocks, as on other systems.
    if (!_isatty(_fileno(stdout)))
        std::ios::sync_with_stdio(false);
    SetConsoleOutputCP(CP_UTF8);
    int count = 0;
    wchar_t **const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<Text> Result;
    for (int i = 1; words && i < count; ++i)
        Result.push_back(IoPath::ToText(words[i]));
    LocalFree(words);
    return Result;
}

Text FullPath(const Text &thePath)
{
    return IoPath::InFull(thePath);
}

Text ParentOf(const Text &thePath)
{
    return thePath.substr(0, thePath.rfind('/'));
}

bool CanRead(const Text &thePath)
{
    return MayRead(thePath);
}

void WriteFile(const Text &theFile, const Text &theContent)
{
    Io::Write(theFile, theContent);
}

void TryFile(const Text &theFile)
{
    // Adding nothing makes a new file, and changes none that is there.
    const bool isNew = Io::KindOf(theFile) == Io::Kind::None;
    Io::Append(theFile, "");
    if (isNew)
        Io::Delete(theFile);
}

void MakeLink(const Text &theTarget, const Text &theLink)
{
    if (Io::KindOf(theTarget) != Io::Kind::Directory) {
        if (!CreateHardLinkW(ForSystem(theLink).c_str(), ForSystem(theTarget).c_str(), nullptr))
            Io::Copy(theTarget, theLink);
    } else if (!MakeJunction(theTarget, theLink)) {
        Io::MakeDirectory(theLink);
        for (const Io::Listed &row : RowsOf(theTarget))
            MakeLink(theTarget + '/' + row.Name, theLink + '/' + row.Name);
    }
}

std::size_t LongestName(const Text &)
{
    return 255;
}

std::size_t LongestPath()
{
    return 32'000;
}

std::int64_t ChangeTime(const Text &theFile)
{
    WIN32_FILE_ATTRIBUTE_DATA facts;
    if (!GetFileAttributesExW(ForSystem(theFile).c_str(), GetFileExInfoStandard, &facts))
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(
        std::uint64_t{facts.ftLastWriteTime.dwHighDateTime} << 32 | facts.ftLastWriteTime.dwLowDateTime);
}

std::int64_t BytesSince(const Text &theDir, std::int64_t theTime)
{
    std::int64_t Result = 0;
    for (const Io::Listed &row : RowsOf(theDir)) {
        const Text path = theDir + '/' + row.Name;
        if (row.IsLink)
            continue;
        if (row.What == Io::Kind::Directory)
            Result += BytesSince(path, theTime);
        else if (ChangeTime(path) >= theTime)
            Result += Io::LookAtFile(path).Size;
    }
    return Result;
}

bool IsTerminal()
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode);
}

std::size_t Columns()
{
    CONSOLE_SCREEN_BUFFER_INFO facts;
    const bool isKnown = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &facts);
    return isKnown && facts.dwSize.X > 0 ? static_cast<std::size_t>(facts.dwSize.X) : 80;
}

void HoldInterrupts()
{
    SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

bool IsInterrupted()
{
    return interrupted;
}

TempDir::TempDir(const Text &theAvoided)
{
    wchar_t place[MAX_PATH + 2];
    const DWORD size = GetTempPathW(static_cast<DWORD>(std::size(place)), place);
    const Text avoided = theAvoided.empty() ? "" : Io::RealPath(theAvoided) + '/';
    for (const Text &above : {FullPath(IoPath::ToText({place, size})), FullPath("\\Users\\Public")}) {
        if (!avoided.empty() && (Io::RealPath(above) + '/').starts_with(avoided))
            continue;
        for (int tries = 0; tries < 100; ++tries) {
            LARGE_INTEGER ticks;
            QueryPerformanceCounter(&ticks);
            char name[60];
            std::snprintf(name, sizeof name, "/ferncastle-%lx-%llx", static_cast<unsigned long>(GetCurrentProcessId()),
                static_cast<unsigned long long>(ticks.QuadPart) + static_cast<unsigned long long>(tries));
            path = above + name;
            if (!Succeeds([&] { Io::MakeDirectory(path); }))
                continue;
            // The cache may know the directory above as it was before.
            if (auto *known = DirectoryCache::FindDir(Paths::FromHost(above)))
                known->Distrust();
            return;
        }
    }
    Fail("cannot make a temporary directory", path);
}

TempDir::~TempDir()
{
    RemoveTree(path);
}
}  // namespace Host
