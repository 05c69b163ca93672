#include "disk/IoPath_windows.h"
#include "base/Failure.h"
#include <algorithm>
#include <utility>
#include <vector>
#include <windows.h>

namespace
{
constexpr std::size_t longestName = 255;  // in units of UTF-16

std::wstring Wide(std::string_view theText)
{
    const int size = static_cast<int>(theText.size());
    const int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, theText.data(), size, nullptr, 0);
    std::wstring Result(static_cast<std::size_t>(std::max(units, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, theText.data(), size, Result.data(), units);
    return Result;
}

bool IsLetter(char theChar)
{
    return LowerChar(theChar) >= 'a' && LowerChar(theChar) <= 'z';
}

// Whether no file can have this name: it would mean something else to Windows.
bool IsImpossible(std::string_view theName)
{
    return theName == "." || theName == ".." || std::any_of(theName.begin(), theName.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || std::string_view("<>:\"/\\|?*").find(c) != Text::npos;
    });
}

// Names that older programs, and Windows itself in most calls, take for a device, whatever follows their first point.
bool IsDevice(std::string_view theName)
{
    Text stem(theName.substr(0, theName.find('.')));
    while (stem.ends_with(' '))
        stem.pop_back();
    std::transform(stem.begin(), stem.end(), stem.begin(), LowerChar);
    for (const char *device : {"con", "prn", "aux", "nul", "conin$", "conout$"})
        if (stem == device)
            return true;
    const std::string_view rest = std::string_view(stem).substr(std::min<std::size_t>(stem.size(), 3));
    const bool hasNumber = (rest.size() == 1 && rest[0] >= '0' && rest[0] <= '9') || rest == "\xc2\xb9" ||
                           rest == "\xc2\xb2" || rest == "\xc2\xb3";
    return hasNumber && (stem.starts_with("com") || stem.starts_with("lpt"));
}

// Why Windows doesn't allow this name; empty when it does.
Text ObjectionTo(std::string_view theName)
{
    if (IsImpossible(theName))
        return "Windows allows no file name with < > : \" | ? * or a control character";
    if (theName.ends_with('.') || theName.ends_with(' '))
        return "Windows allows no file name that ends in a point or a blank";
    if (IsDevice(theName))
        return "Windows keeps this file name for a device";
    const std::wstring wide = Wide(theName);
    return wide.empty() ? "this file name isn't UTF-8" : wide.size() > longestName ? "File name too long" : "";
}

// One element of a path as the disk has it.
std::wstring LongName(const std::wstring &thePath)
{
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileExW(thePath.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE)
        return {};
    FindClose(search);
    return found.cFileName;
}
}  // namespace

namespace IoPath
{
std::wstring ForSystem(const Text &thePath)
{
    const bool hasDrive =
        thePath.size() >= 2 && IsLetter(thePath[0]) && thePath[1] == ':' && (thePath.size() == 2 || thePath[2] == '/');
    if (!hasDrive)
        return {};
    std::wstring Result = L"\\\\?\\";
    Result += Wide(thePath.substr(0, 2));
    for (std::size_t at = 2; at < thePath.size();) {
        const std::size_t end = std::min(thePath.find('/', at), thePath.size());
        const std::string_view element = std::string_view(thePath).substr(at, end - at);
        at = end + 1;
        if (element.empty())
            continue;
        const std::wstring wide = IsImpossible(element) ? L"" : Wide(element);
        if (wide.empty())
            return {};
        Result += L'\\';
        Result += wide;
    }
    // Without a backslash it would be the drive itself, not its root.
    return Result.back() == L':' ? Result + L'\\' : Result;
}

std::wstring ForNew(const Text &thePath)
{
    if (const Text objection = ObjectionTo(std::string_view(thePath).substr(thePath.rfind('/') + 1));
        !objection.empty())
        Fail(objection, thePath);
    std::wstring Result = ForSystem(thePath);
    if (Result.empty())
        Fail("No such file or directory", thePath);
    return Result;
}

Text ToText(std::wstring_view theText)
{
    const int units = static_cast<int>(theText.size());
    const int size =
        WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, theText.data(), units, nullptr, 0, nullptr, nullptr);
    Text Result(static_cast<std::size_t>(std::max(size, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, theText.data(), units, Result.data(), size, nullptr, nullptr);
    return Result;
}

Text FromSystem(std::wstring_view thePath)
{
    const bool isShare = thePath.starts_with(L"\\\\?\\UNC\\");
    if (thePath.starts_with(L"\\\\?\\"))
        thePath.remove_prefix(isShare ? 7 : 4);
    Text Result(isShare ? "/" : "");
    Result += ToText(thePath);
    std::replace(Result.begin(), Result.end(), '\\', '/');
    while (Result.size() > 3 && Result.ends_with('/'))
        Result.pop_back();
    if (Result.size() >= 2 && Result[1] == ':' && Result[0] >= 'a' && Result[0] <= 'z')
        Result[0] = static_cast<char>(Result[0] - 'a' + 'A');
    return Result;
}

Text InFull(const Text &thePath)
{
    const std::wstring given = Wide(thePath);
    std::wstring full(GetFullPathNameW(given.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(given.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    const Text path = FromSystem(full);
    // The names of a server and its share stay as they are.
    std::size_t at = path.starts_with("//") ? path.find('/', path.find('/', 2) + 1) : path.find('/');
    Text Result = path.substr(0, at);
    while (at < path.size()) {
        const std::size_t end = std::min(path.find('/', at + 1), path.size());
        const Text element = path.substr(at, end - at);
        const std::wstring place = element.size() == 1 ? L"" : ForSystem(Result + element);
        const Text name = place.empty() ? "" : ToText(LongName(place));
        Result += name.empty() ? element : "/" + name;
        at = end;
    }
    return Result;
}

// The words are those that other systems have for the same reasons, since the player's output is compared.
static Text ReasonOf(DWORD theError)
{
    switch (theError) {
    case ERROR_SUCCESS:
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        return "No such file or directory";
    case ERROR_ACCESS_DENIED:
        return "Permission denied";
    case ERROR_WRITE_PROTECT:
        return "Read-only file system";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
        return "another program has this file open";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return "No space left on device";
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return "File exists";
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return "File name too long";
    case ERROR_DIRECTORY:
        return "Not a directory";
    case ERROR_NOT_READY:
        return "there is no disk in the drive";
    default:
        break;
    }
    wchar_t words[300];
    DWORD count =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
            nullptr, theError, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    while (count > 0 && (words[count - 1] == L' ' || words[count - 1] == L'.'))
        --count;
    return count > 0 ? ToText({words, count}) : "error " + std::to_string(theError) + " of Windows";
}

Text LastReason(const Text &thePath)
{
    const DWORD error = GetLastError();
    if (error != ERROR_ACCESS_DENIED)
        return ReasonOf(error);
    // The same error tells that the file may not be replaced and that it can't be, since somebody has it open.
    const HANDLE file =
        CreateFileW(ForSystem(thePath).c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    const bool isOpen = file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_SHARING_VIOLATION;
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    return ReasonOf(isOpen ? ERROR_SHARING_VIOLATION : error);
}

void FailHere(const Text &thePath)
{
    Fail(LastReason(thePath), thePath);
}
}  // namespace IoPath
