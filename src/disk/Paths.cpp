#include "disk/Paths.h"
#include "disk/Io.h"
#include <algorithm>
#include <map>

namespace
{
std::map<char, Text> drives;
unsigned driveChanges = 0;
Text programDir, programHostDir;

Text WithoutSlash(const Text &theDir)
{
    return theDir.ends_with('/') ? theDir.substr(0, theDir.size() - 1) : theDir;
}

std::map<char, Text> &TheDrives()
{
    if (drives.empty())
        for (const auto &[letter, dir] : Io::Drives())
            drives[letter] = dir;
    return drives;
}
}  // namespace

namespace Paths
{
void MapDrive(char theLetter, const Text &theHostDir)
{
    TheDrives()[LowerChar(theLetter)] = WithoutSlash(theHostDir);
    ++driveChanges;
}

std::vector<Text> Drives()
{
    std::vector<Text> Result;
    for (const auto &drive : TheDrives())
        Result.push_back(Text{drive.first, ':'});
    return Result;
}

Text DriveRoot(char theLetter)
{
    const auto found = TheDrives().find(LowerChar(theLetter));
    if (found == TheDrives().end())
        return {};
    const bool isRoot = found->second.find('/') == Text::npos;
    return isRoot ? found->second + '/' : found->second;
}

unsigned DriveChanges()
{
    return driveChanges;
}

const Text &ProgramDir()
{
    if (programDir.empty())
        SetProgramDir(Io::ProgramDirectory());
    return programDir;
}

const Text &ProgramHostDir()
{
    ProgramDir();
    return programHostDir;
}

void SetProgramDir(const Text &theHostDir)
{
    programHostDir = WithoutSlash(theHostDir);
    programDir = FromHost(theHostDir);
}

// The first drive whose root holds a full path of the host. Where c: holds all, it is always c:, since further drives
// may have other letters tomorrow. Null when none does.
static const std::pair<const char, Text> *DriveThatHolds(const Text &theHostPath)
{
    for (const auto &drive : TheDrives())
        if (const std::size_t end = drive.second.size();
            theHostPath.size() > end && theHostPath[end] == '/' &&
            CompareIgnoringCase(theHostPath.substr(0, end), drive.second) == 0)
            return &drive;
    return nullptr;
}

bool IsHostPath(const Text &thePath)
{
    return DriveThatHolds(thePath) != nullptr;
}

Text FromHost(const Text &theHostPath)
{
    const auto *drive = DriveThatHolds(theHostPath);
    Text Result = drive ? Text{drive->first, ':'} + theHostPath.substr(drive->second.size()) : "c:" + theHostPath;
    std::replace(Result.begin() + 2, Result.end(), '/', '\\');
    while (Result.size() > 3 && Result.back() == '\\')
        Result.pop_back();
    return Result;
}

Text Normalize(const Text &thePath)
{
    if (thePath.size() < 2 || thePath[1] != ':')
        return thePath;
    std::vector<std::size_t> ends;  // where Result ended before each element
    Text Result = thePath.substr(0, 2);
    for (std::size_t at = 2; at < thePath.size();) {
        const std::size_t end = std::min(thePath.find_first_of("\\/", at), thePath.size());
        const Text element = thePath.substr(at, end - at);
        if (element == "..") {
            if (!ends.empty()) {
                Result.resize(ends.back());
                ends.pop_back();
            }
        } else if (!element.empty() && element != ".") {
            ends.push_back(Result.size());
            Result += '\\' + element;
        }
        at = end + 1;
    }
    return Result.size() == 2 ? Result + '\\' : Result;
}

// thePath as Normalize makes it. Most paths have that form already, and are not copied into theStorage then.
static std::string_view NormalForm(const Text &thePath, Text &theStorage)
{
    std::string_view path = thePath;
    if (path.size() > 3 && path.back() == '\\')
        path.remove_suffix(1);
    bool isNormal = path.size() > 2 && path[1] == ':' && path[2] == '\\';
    for (std::size_t at = 3; isNormal && at < path.size(); ++at)
        isNormal = path[at] != '/' && (path[at - 1] != '\\' || (path[at] != '.' && path[at] != '\\'));
    return isNormal ? path : std::string_view(theStorage = Normalize(thePath));
}

bool IsInside(const Text &thePath, const Text &theDir)
{
    Text pathStorage, dirStorage;
    const std::string_view path = NormalForm(thePath, pathStorage), dir = NormalForm(theDir, dirStorage);
    return CompareIgnoringCase(path.substr(0, dir.size()), dir) == 0 &&
           (path.size() == dir.size() || dir.ends_with('\\') || path[dir.size()] == '\\');
}

bool MatchesPattern(const Text &theName, const Text &thePattern)
{
    std::size_t n = 0, p = 0, star = Text::npos, resume = 0;
    while (n < theName.size()) {
        if (p < thePattern.size() && thePattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (p < thePattern.size() &&
                   (thePattern[p] == '?' || LowerChar(thePattern[p]) == LowerChar(theName[n]))) {
            ++p;
            ++n;
        } else if (star != Text::npos) {
            p = star + 1;
            n = ++resume;
        } else
            return false;
    }
    return thePattern.find_first_not_of('*', p) == Text::npos;
}

int CompareIgnoringCase(std::string_view a, std::string_view b)
{
    if (a == b)
        return 0;
    const std::size_t both = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < both; ++i) {
        const auto x = static_cast<unsigned char>(LowerChar(a[i])), y = static_cast<unsigned char>(LowerChar(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}
}  // namespace Paths
