// Places: drives, the program's directory, and the forms of a path.
#include "toolkit/HostFiles.h"
#include "toolkit/HostMemory.h"
#include <algorithm>
#include <map>

using namespace HostMemory;

namespace
{
std::map<char, Text> drives;
Text programDir;

std::map<char, Text> &TheDrives()
{
    if (drives.empty())
        for (const auto &[letter, dir] : HostIo::Drives())
            drives[letter] = dir;
    return drives;
}

void SetProgram(const Text &theHostDir)
{
    programDir = HostFiles::FromHost(theHostDir);
}
}  // namespace

namespace HostFiles
{
void MapDrive(char theLetter, const Text &theHostDir)
{
    Settle();
    TheDrives()[LowerChar(theLetter)] = theHostDir == "/" ? "" : theHostDir;
    ForgetAll();
}

const Text &ProgramDir()
{
    if (programDir.empty())
        SetProgram(HostIo::ProgramDirectory());
    return programDir;
}

void SetProgramDir(const Text &theHostDir)
{
    Settle();
    SetProgram(theHostDir);
    ForgetAll();
}

Text ToHost(const Text &thePath)
{
    const Text path = Plain(thePath);
    if (path.size() < 3 || path[1] != ':' || !TheDrives().contains(LowerChar(path[0])))
        return {};
    if (path.size() == 3) {
        const Text &root = TheDrives()[LowerChar(path[0])];
        return root.empty() ? "/" : root;
    }
    std::string_view name;
    Dir *const dir = FindParent(path, name);
    if (dir) {
        const Entry *entry = dir->Find(name, HostIo::Kind::None);
        return entry ? entry->HostPath() : dir->PathOf(name);
    }
    Text parent = ToHost(path.substr(0, path.size() - name.size()));
    return parent.empty() ? parent : parent + '/' + Text(name);
}

Text FromHost(const Text &theHostPath)
{
    // Never another letter than c: those of further drives may be others tomorrow.
    const Text &root = TheDrives()['c'];
    Text Result = "c:" + (theHostPath.starts_with(root + '/') ? theHostPath.substr(root.size()) : theHostPath);
    std::replace(Result.begin() + 2, Result.end(), '/', '\\');
    while (Result.size() > 3 && Result.back() == '\\')
        Result.pop_back();
    return Result;
}

Text Plain(const Text &thePath)
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

bool LiesIn(const Text &thePath, const Text &theDir)
{
    const auto closed = [](Text thePlain) { return thePlain.ends_with('\\') ? thePlain : thePlain + '\\'; };
    const Text path = closed(Plain(thePath)), dir = closed(Plain(theDir));
    return path.size() >= dir.size() && CompareIgnoringCase(std::string_view(path).substr(0, dir.size()), dir) == 0;
}

bool ReallyLiesIn(const Text &thePath, const Text &theDir)
{
    const Text path = HostIo::RealPath(ToHost(thePath)) + '/', dir = HostIo::RealPath(ToHost(theDir)) + '/';
    return dir != "/" && path.starts_with(dir);
}

bool DriveExists(const Text &thePath)
{
    return thePath.size() >= 2 && thePath[1] == ':' && IsDirectory(Text{thePath[0], ':', '\\'});
}

std::vector<Text> Drives()
{
    std::vector<Text> Result;
    for (const auto &drive : TheDrives())
        Result.push_back(Text{drive.first, ':'});
    return Result;
}

bool FitsPattern(const Text &theName, const Text &thePattern)
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
}  // namespace HostFiles
