#include "toolkit/Pickers.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Presentation.h"
#include "toolkit/Services.h"
#include <algorithm>

static const Text noText;

// A directory's path as the lists keep it: without a final backslash, except for a drive's root.
static Text PlainPath(const Text &thePath)
{
    if (!Files::IsDirectory(thePath))
        Fail("path not found", thePath);
    Text Result = thePath;
    while (Result.size() > 3 && Result.back() == '\\')
        Result.pop_back();
    if (Result.size() == 2)
        Result += '\\';
    return Result;
}

const Text &DirList::GetPath() const
{
    Touch();
    return NowPath;
}

void DirList::SetPath(const Text &thePath)
{
    Touch();
    Text path = PlainPath(thePath);
    const bool isOther = path != NowPath;
    NowPath = std::move(path);
    Refresh();
    if (isOther && Design.Change)
        Design.Change();
}

int DirList::ListCount() const
{
    Touch();
    return NowNames ? static_cast<int>(NowNames->size()) : 0;
}

Text DirList::List(int theIndex) const
{
    Touch();
    if (theIndex < -Depth() || theIndex >= ListCount())
        return noText;
    if (theIndex < 0) {
        Text Result = NowPath;
        for (int up = theIndex; up < -1; ++up)
            Result.erase(Result.find_last_of('\\'));
        return Result.size() == 2 ? Result + '\\' : Result;
    }
    const Text &name = (*NowNames)[static_cast<std::size_t>(theIndex)];
    return NowPath.back() == '\\' ? NowPath + name : NowPath + '\\' + name;
}

int DirList::Depth() const
{
    Touch();
    if (NowPath.empty())
        return 0;
    const auto slashes = std::count(NowPath.begin(), NowPath.end(), '\\');
    return static_cast<int>(slashes) + (NowPath.back() == '\\' ? 0 : 1);
}

int DirList::ListIndex() const
{
    Touch();
    return NowIndex;
}

void DirList::Refresh()
{
    Touch();
    NowIndex = -1;
    NowNames = NowPath.empty() ? nullptr : Files::DirectoriesIn(NowPath);
    Changed();
}

void DirList::Reset()
{
    Control::Reset();
    NowPath.clear();
    NowIndex = -1;
    NowNames.reset();
}

const Text &FileList::GetPath() const
{
    Touch();
    return path;
}

void FileList::SetPath(const Text &thePath)
{
    Touch();
    path = PlainPath(thePath);
    names.reset();
}

const Text &FileList::GetPattern() const
{
    Touch();
    return pattern;
}

void FileList::SetPattern(const Text &thePattern)
{
    Touch();
    pattern = thePattern;
    names.reset();
}

const std::vector<Text> &FileList::Names() const
{
    Touch();
    if (!names) {
        names = path.empty() ? std::make_shared<const std::vector<Text>>() : Files::FilesIn(path);
        if (!pattern.empty()) {
            std::vector<Text> fitting;
            for (const Text &name : *names)
                if (Paths::MatchesPattern(name, pattern))
                    fitting.push_back(name);
            names = std::make_shared<const std::vector<Text>>(std::move(fitting));
        }
    }
    return *names;
}

int FileList::ListCount() const
{
    return static_cast<int>(Names().size());
}

Text FileList::List(int theIndex) const
{
    return theIndex < 0 || theIndex >= ListCount() ? noText : Names()[static_cast<std::size_t>(theIndex)];
}

void FileList::Refresh()
{
    Touch();
    names.reset();
}

void FileList::Reset()
{
    Control::Reset();
    path.clear();
    pattern.clear();
    names.reset();
}

const Text &DriveList::GetDrive() const
{
    Touch();
    return NowDrive;
}

void DriveList::SetDrive(const Text &thePath)
{
    Touch();
    if (!Files::DriveExists(thePath))
        Fail("no such drive", thePath);
    const Text drive{LowerChar(thePath[0]), ':'};
    const bool isOther = drive != NowDrive;
    NowDrive = drive;
    Changed();
    if (isOther && Design.Change)
        Design.Change();
}

void DriveList::Reset()
{
    Control::Reset();
    NowDrive.clear();
}

void FileDialog::ShowOpen()
{
    Touch();
    FileName = OpenFile(Filter);
}

void FileDialog::Reset()
{
    Filter.clear();
    FileName.clear();
}
