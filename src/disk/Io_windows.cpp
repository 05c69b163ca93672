#include "base/Failure.h"
#include "disk/Claim.h"
#include "disk/Io.h"
#include "disk/IoPath_windows.h"
#include "disk/Losses.h"
#include <algorithm>
#include <cstdio>
#include <map>
#include <windows.h>

using IoPath::FailHere;
using IoPath::ForSystem;

namespace
{
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// A file or directory, links followed, open for its facts alone unless more is asked for. That needs no permission for
// it and disturbs nobody.
class Opened
{
public:
    explicit Opened(const std::wstring &thePath, DWORD theAccess = FILE_READ_ATTRIBUTES)
        : handle(CreateFileW(
              thePath.c_str(), theAccess, shareAll, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr))
    {
    }
    ~Opened()
    {
        if (IsThere())
            CloseHandle(handle);
    }
    Opened(const Opened &) = delete;
    Opened &operator=(const Opened &) = delete;
    bool IsThere() const { return handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return handle; }

private:
    const HANDLE handle;
};

std::int64_t Joined(DWORD theHigh, DWORD theLow)
{
    return static_cast<std::int64_t>(std::uint64_t{theHigh} << 32 | theLow);
}

// In nanoseconds since 1970. Windows counts hundreds of them since 1601.
std::int64_t Nanoseconds(const FILETIME &theTime)
{
    return (Joined(theTime.dwHighDateTime, theTime.dwLowDateTime) - 116'444'736'000'000'000) * 100;
}

std::int64_t NanosecondsNow()
{
    FILETIME now;
    GetSystemTimePreciseAsFileTime(&now);
    return Nanoseconds(now);
}

// After a look that has failed: that nothing is there, or nothing that may be looked at, is an answer; where the system
// can't say, the user is told.
void NoteUnlessAnswer(const Text &thePath)
{
    for (const DWORD answer : {ERROR_SUCCESS, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME,
             ERROR_DIRECTORY, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_DELETE_PENDING,
             ERROR_FILENAME_EXCED_RANGE, ERROR_NOT_READY, ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME, ERROR_INVALID_DRIVE,
             ERROR_CANT_ACCESS_FILE, ERROR_CANT_RESOLVE_FILENAME})
        if (GetLastError() == static_cast<DWORD>(answer))
            return;
    Losses::Note({IoPath::LastReason(thePath), thePath});
}

struct Facts {
    DWORD Attributes = 0;
    std::int64_t Changed = -1, Size = -1;
    Io::Identity Id = {};
};

bool LookThrough(const Opened &theFile, Facts &theFacts)
{
    BY_HANDLE_FILE_INFORMATION told;
    if (!theFile.IsThere() || !GetFileInformationByHandle(theFile.Handle(), &told))
        return false;
    theFacts = {told.dwFileAttributes, Nanoseconds(told.ftLastWriteTime), Joined(told.nFileSizeHigh, told.nFileSizeLow),
        {told.dwVolumeSerialNumber, static_cast<std::uint64_t>(Joined(told.nFileIndexHigh, told.nFileIndexLow))}};
    return true;
}

// The facts of a path but its identity, links followed. Only a link has to be opened for them.
bool Look(const Text &thePath, Facts &theFacts)
{
    const std::wstring path = ForSystem(thePath);
    if (path.empty())
        return false;
    WIN32_FILE_ATTRIBUTE_DATA told;
    bool isThere = GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &told);
    if (isThere && (told.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        isThere = LookThrough(Opened(path), theFacts);
    else if (isThere)
        theFacts = {
            told.dwFileAttributes, Nanoseconds(told.ftLastWriteTime), Joined(told.nFileSizeHigh, told.nFileSizeLow)};
    if (!isThere)
        NoteUnlessAnswer(thePath);
    return isThere;
}

Io::Kind KindOfAttributes(DWORD theAttributes)
{
    return (theAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Io::Kind::Directory
           : (theAttributes & FILE_ATTRIBUTE_DEVICE) != 0  ? Io::Kind::Other
                                                           : Io::Kind::File;
}

// Whether the file system of a directory renews the directory's time when a name in it changes. FAT and exFAT don't.
bool KeepsChangeTimes(const Opened &theDir, std::uint64_t theVolume)
{
    static std::map<std::uint64_t, bool> known;
    const auto [volume, isNew] = known.try_emplace(theVolume, false);
    wchar_t name[MAX_PATH + 1] = L"";
    if (isNew && GetVolumeInformationByHandleW(
                     theDir.Handle(), nullptr, 0, nullptr, nullptr, nullptr, name, static_cast<DWORD>(std::size(name))))
        volume->second = std::wstring_view(name) == L"NTFS" || std::wstring_view(name) == L"ReFS";
    return volume->second;
}
}  // namespace

namespace Io
{
DirectoryFacts LookAt(const Text &theDir)
{
    const std::wstring path = ForSystem(theDir);
    if (path.empty())
        return {};
    const Opened dir(path);
    Facts facts;
    if (!LookThrough(dir, facts)) {
        NoteUnlessAnswer(theDir);
        return {};
    }
    if (KindOfAttributes(facts.Attributes) != Kind::Directory)
        return {};
    // Where the time tells nothing, the directory counts as changed just now, and is read anew.
    return {KeepsChangeTimes(dir, facts.Id.first) ? facts.Changed : NanosecondsNow(), facts.Id};
}

FileFacts LookAtFile(const Text &theFile)
{
    Facts facts;
    if (!Look(theFile, facts))
        return {};
    return {facts.Changed ^ (facts.Size << 1), facts.Size};
}

Kind KindOf(const Text &thePath)
{
    Facts facts;
    return Look(thePath, facts) ? KindOfAttributes(facts.Attributes) : Kind::None;
}

Identity IdentityOf(const Text &thePath)
{
    Facts facts;
    const std::wstring path = ForSystem(thePath);
    return !path.empty() && LookThrough(Opened(path), facts) ? facts.Id : Identity();
}

Text RealPath(const Text &thePath)
{
    const std::wstring path = ForSystem(thePath);
    const Opened file(path.empty() ? L"?" : path);
    if (!file.IsThere())
        return {};
    std::wstring real(GetFinalPathNameByHandleW(file.Handle(), nullptr, 0, VOLUME_NAME_DOS), L'\0');
    real.resize(
        GetFinalPathNameByHandleW(file.Handle(), real.data(), static_cast<DWORD>(real.size()), VOLUME_NAME_DOS));
    return IoPath::FromSystem(real);
}

void ReadDirectory(const Text &theDir, std::vector<Listed> &theNames)
{
    WIN32_FIND_DATAW row;
    std::wstring pattern = ForSystem(theDir);
    if (pattern.empty())
        Fail("No such file or directory", theDir);
    pattern += pattern.ends_with(L'\\') ? L"*" : L"\\*";
    const HANDLE search = FindFirstFileExW(
        pattern.c_str(), FindExInfoBasic, &row, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE) {
        // The empty root of a drive holds not even "." and "..".
        if (GetLastError() == ERROR_FILE_NOT_FOUND && KindOf(theDir) == Kind::Directory)
            return;
        FailHere(theDir);
    }
    DWORD error = ERROR_SUCCESS;
    do {
        const Text name = IoPath::ToText(row.cFileName);
        if (name.empty() || name == "." || name == "..")
            continue;
        // Other reparse points, such as files that are fetched from a cloud once they are read, are no links.
        const bool isLink =
            (row.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && IsReparseTagNameSurrogate(row.dwReserved0);
        const bool isHidden = (row.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0;
        theNames.push_back(
            {name, isLink ? KindOf(theDir + '/' + name) : KindOfAttributes(row.dwFileAttributes), isLink, isHidden});
    } while (FindNextFileW(search, &row));
    error = GetLastError();
    FindClose(search);
    SetLastError(error);
    if (error != ERROR_NO_MORE_FILES)
        FailHere(theDir);
}

void Delete(const Text &theFile)
{
    const std::wstring path = ForSystem(theFile);
    // Unlike elsewhere, a file that may not be written may not be deleted either.
    if (const DWORD attributes = GetFileAttributesW(path.c_str());
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        SetFileAttributesW(path.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    if (!DeleteFileW(path.c_str()))
        FailHere(theFile);
}

void MakeDirectory(const Text &theDir)
{
    if (!CreateDirectoryW(IoPath::ForNew(theDir).c_str(), nullptr))
        FailHere(theDir);
}

std::int64_t FreeSpace(const Text &theDir)
{
    ULARGE_INTEGER free;
    if (!GetDiskFreeSpaceExW(ForSystem(theDir).c_str(), &free, nullptr, nullptr))
        FailHere(theDir);
    return static_cast<std::int64_t>(free.QuadPart);
}

bool CanWriteIn(const Text &theDir)
{
    return Opened(ForSystem(theDir), FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY).IsThere();
}

// All processes hold a mutex that is named after the directory. The system drops it with the last of them.
bool Claim(const Text &theDir)
{
    const Identity id = IdentityOf(theDir);
    wchar_t name[80];
    std::swprintf(name, std::size(name), L"Global\\ferncastle-%08llx-%016llx",
        static_cast<unsigned long long>(id.first), static_cast<unsigned long long>(id.second));
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, name);
    // Another user's mutex is there, but can't be opened.
    return mutex ? GetLastError() != ERROR_ALREADY_EXISTS : GetLastError() != ERROR_ACCESS_DENIED;
}

Text ProgramDirectory()
{
    std::wstring told(32768, L'\0');
    told.resize(GetModuleFileNameW(nullptr, told.data(), static_cast<DWORD>(told.size())));
    const Text program = IoPath::InFull(IoPath::ToText(told));
    return program.substr(0, program.rfind('/'));
}

std::vector<std::pair<char, Text>> Drives()
{
    // A drive without a disk is an answer, not a box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS);
    std::vector<std::pair<char, Text>> Result;
    const DWORD letters = GetLogicalDrives();
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if ((letters >> (letter - 'a') & 1) != 0 || letter == 'c')
            Result.emplace_back(letter, Text{static_cast<char>(letter - 'a' + 'A'), ':'});
    return Result;
}
}  // namespace Io
