#include "base/Failure.h"
#include "disk/Io.h"
#include "disk/IoContent.h"
#include "disk/IoPath_windows.h"
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>
#include <windows.h>

using IoPath::FailHere;
using IoPath::ForSystem;

namespace
{
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t blockSize = 1 << 18;

// A handle of a file, closed at the end.
class File
{
public:
    File(HANDLE theHandle, const Text &thePath) : path(thePath), handle(theHandle) {}
    ~File()
    {
        if (IsOpen())
            CloseHandle(handle);
    }
    File(const File &) = delete;
    File &operator=(const File &) = delete;

    bool IsOpen() const { return handle != INVALID_HANDLE_VALUE; }
    HANDLE Handle() const { return handle; }
    void RequireOpen() const
    {
        if (!IsOpen())
            FailHere(path);
    }
    void Take(HANDLE theHandle) { handle = theHandle; }
    BY_HANDLE_FILE_INFORMATION Facts() const
    {
        BY_HANDLE_FILE_INFORMATION Result;
        if (!GetFileInformationByHandle(handle, &Result))
            FailHere(path);
        return Result;
    }
    // Reads up to theCount bytes; 0 at the end.
    std::size_t Read(char *theBytes, std::size_t theCount) const
    {
        DWORD got = 0;
        if (!ReadFile(handle, theBytes, static_cast<DWORD>(std::min<std::size_t>(theCount, 1 << 30)), &got, nullptr))
            FailHere(path);
        return got;
    }
    void Write(std::string_view theBytes) const
    {
        while (!theBytes.empty()) {
            DWORD written = 0;
            if (!WriteFile(handle, theBytes.data(), static_cast<DWORD>(std::min<std::size_t>(theBytes.size(), 1 << 30)),
                    &written, nullptr))
                FailHere(path);
            theBytes.remove_prefix(written);
        }
    }
    void Close()
    {
        // Some file systems report only now that what was written is lost.
        if (!CloseHandle(std::exchange(handle, INVALID_HANDLE_VALUE)))
            FailHere(path);
    }

private:
    const Text &path;
    HANDLE handle;
};

// A plain file, open for reading. Others may do with it what they like meanwhile.
class SourceFile : public File
{
public:
    explicit SourceFile(const Text &theFile) : File(Open(theFile), theFile)
    {
        RequireOpen();
        const BY_HANDLE_FILE_INFORMATION facts = Facts();
        size = static_cast<std::int64_t>(std::uint64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow);
    }
    std::int64_t Size() const { return size; }

private:
    static HANDLE Open(const Text &theFile)
    {
        const std::wstring path = ForSystem(theFile);
        const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
            Fail("not a plain file", theFile);
        return path.empty() ? INVALID_HANDLE_VALUE
                            : CreateFileW(path.c_str(), GENERIC_READ, shareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    }
    std::int64_t size = 0;
};

// A name beside theFile that begins with a point. It depends on nothing but the file's own name: what a killed process
// has left behind makes way for the next file of that name.
Text HiddenNameFor(const Text &theFile)
{
    char name[40];
    std::snprintf(
        name, sizeof name, ".ferncastle-%016llx.part", static_cast<unsigned long long>(std::hash<Text>()(theFile)));
    return theFile.substr(0, theFile.rfind('/') + 1) + name;
}

// The attributes of a name; a link is not followed.
DWORD AttributesOf(const Text &theFile)
{
    const std::wstring path = ForSystem(theFile);
    return path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
}

bool IsThere(const Text &theFile)
{
    return AttributesOf(theFile) != INVALID_FILE_ATTRIBUTES;
}

// What the newer kind of renaming is told; the older one knows the first alone.
enum RenameFlags : DWORD { shallReplace = 1, evenWhileRead = 2, evenReadOnly = 0x40 };
constexpr auto renameByFlags = static_cast<FILE_INFO_BY_HANDLE_CLASS>(22);

bool Rename(HANDLE theHandle, const std::wstring &theName, DWORD theFlags, FILE_INFO_BY_HANDLE_CLASS theKind)
{
    const std::size_t size = theName.size() * sizeof(wchar_t);
    std::vector<std::uint64_t> storage((sizeof(FILE_RENAME_INFO) + size) / sizeof(std::uint64_t) + 1);
    auto *const told = reinterpret_cast<FILE_RENAME_INFO *>(storage.data());
    std::memcpy(told, &theFlags, sizeof theFlags);
    told->FileNameLength = static_cast<DWORD>(size);
    std::memcpy(told->FileName, theName.data(), size);
    return SetFileInformationByHandle(
        theHandle, theKind, told, static_cast<DWORD>(storage.size() * sizeof(std::uint64_t)));
}

// A file that is being written. It gets its name only when it is published, so that no incomplete file is ever visible.
// If it is never published, or the process is killed, at most a temporary file remains, which the next draft
// overwrites.
class Draft
{
public:
    // Opens a file in the directory of theFile. With willReplace it replaces a file of that name when it is published.
    Draft(const Text &theFile, bool willReplace);
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    ~Draft();

    void Write(std::string_view theContent) { draft.Write(theContent); }
    void CopyFrom(const Text &theSource);
    // Gives the file its name. A failure when something has that name and isn't to be replaced.
    void Publish();

private:
    bool Replace() const;

    const Text &file;
    const std::wstring name;
    const bool isReplacement;
    bool isPublished = false;
    File draft;
};

Draft::Draft(const Text &theFile, bool willReplace)
    : file(theFile), name(IoPath::ForNew(theFile)), isReplacement(willReplace), draft(INVALID_HANDLE_VALUE, theFile)
{
    const std::wstring hidden = ForSystem(HiddenNameFor(file));
    const auto open = [&] {
        draft.Take(CreateFileW(hidden.c_str(), GENERIC_WRITE | DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
            CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    open();
    if (!draft.IsOpen() && GetLastError() == ERROR_FILE_EXISTS && DeleteFileW(hidden.c_str()))
        open();
    draft.RequireOpen();
}

Draft::~Draft()
{
    FILE_DISPOSITION_INFO doomed{TRUE};
    if (draft.IsOpen() && !isPublished)
        SetFileInformationByHandle(draft.Handle(), FileDispositionInfo, &doomed, sizeof doomed);
}

void Draft::CopyFrom(const Text &theSource)
{
    const SourceFile source(theSource);
    static thread_local std::vector<char> block(blockSize);
    while (const std::size_t got = source.Read(block.data(), block.size()))
        draft.Write({block.data(), got});
}

// Newer systems replace a file that others read meanwhile, older ones don't.
bool Draft::Replace() const
{
    return Rename(draft.Handle(), name, shallReplace | evenWhileRead | evenReadOnly, renameByFlags) ||
           Rename(draft.Handle(), name, shallReplace, FileRenameInfo);
}

void Draft::Publish()
{
    const DWORD old = isReplacement ? AttributesOf(file) : INVALID_FILE_ATTRIBUTES;
    const bool isReadOnly = old != INVALID_FILE_ATTRIBUTES && (old & FILE_ATTRIBUTE_READONLY) != 0;
    if (isReadOnly)
        SetFileAttributesW(name.c_str(), old & ~DWORD{FILE_ATTRIBUTE_READONLY});
    bool isDone = isReplacement ? Replace() : Rename(draft.Handle(), name, 0, FileRenameInfo);
    // A virus scanner or an indexer often has a file open for a moment.
    for (int tries = 0; tries < 5 && !isDone && isReplacement && GetLastError() == ERROR_ACCESS_DENIED; ++tries) {
        Sleep(20);
        isDone = Replace();
    }
    const DWORD error = GetLastError();
    // The file stays one that may not be written.
    if (isReadOnly)
        SetFileAttributesW(name.c_str(), GetFileAttributesW(name.c_str()) | FILE_ATTRIBUTE_READONLY);
    if (!isDone) {
        SetLastError(error);
        FailHere(file);
    }
    isPublished = true;
    try {
        draft.Close();
    } catch (const RuntimeFailure &) {
        if (!isReplacement)
            DeleteFileW(name.c_str());  // what was written may be lost
        throw;
    }
}
}  // namespace

namespace Io
{
Text Read(const Text &theFile)
{
    return IoContent::ReadWhole(SourceFile(theFile), theFile);
}

void Write(const Text &theFile, const Text &theContent)
{
    IoContent::WriteWhole(Draft(theFile, IsThere(theFile)), theContent);
}

void Write(const Text &theFile, const Pieces &thePieces)
{
    IoContent::WritePieces(Draft(theFile, IsThere(theFile)), thePieces);
}

void WriteNew(const Text &theFile, const Text &theContent)
{
    IoContent::WriteWhole(Draft(theFile, false), theContent);
}

void Append(const Text &theFile, const Text &theContent)
{
    const std::wstring name = IoPath::ForNew(theFile);
    File file(CreateFileW(name.c_str(), FILE_APPEND_DATA | FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_DELETE,
                  nullptr, OPEN_ALWAYS, FILE_FLAG_OPEN_REPARSE_POINT, nullptr),
        theFile);
    const bool isReadOnly = !file.IsOpen() && GetLastError() == ERROR_ACCESS_DENIED && KindOf(theFile) == Kind::File;
    if (!isReadOnly)
        file.RequireOpen();
    // A link is replaced by a file, and a file that stands elsewhere under another name is to stay as it is there.
    const BY_HANDLE_FILE_INFORMATION facts = isReadOnly ? BY_HANDLE_FILE_INFORMATION{} : file.Facts();
    if (isReadOnly || facts.nNumberOfLinks > 1 || (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        if (!isReadOnly)
            file.Close();
        Write(theFile, Read(theFile) + theContent);
        return;
    }
    file.Write(theContent);
    file.Close();
}

void Copy(const Text &theSource, const Text &theTarget)
{
    const DWORD target = AttributesOf(theTarget);
    const bool isFile = target != INVALID_FILE_ATTRIBUTES && (target & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
    // Some network drives give all files the same identity, of zeros.
    const Identity identity = isFile ? IdentityOf(theTarget) : Identity();
    if (identity != Identity() && IdentityOf(theSource) == identity)
        return;  // a file onto itself
    Draft draft(theTarget, target != INVALID_FILE_ATTRIBUTES);
    draft.CopyFrom(theSource);
    draft.Publish();
}

bool EndsInLineFeed(const Text &theFile)
{
    const SourceFile file(theFile);
    char last = '\n';
    LARGE_INTEGER end;
    end.QuadPart = file.Size() - 1;
    if (file.Size() > 0 && (!SetFilePointerEx(file.Handle(), end, nullptr, FILE_BEGIN) || file.Read(&last, 1) != 1))
        FailHere(theFile);
    return last == '\n';
}
}  // namespace Io
