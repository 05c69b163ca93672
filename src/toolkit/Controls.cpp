#include "toolkit/Controls.h"
#include "toolkit/HostFiles.h"
#include "toolkit/Presentation.h"
#include "toolkit/Services.h"
#include <algorithm>

static const Text noText;

Control::Control(Form &theOwner, const char *theName, Face theDesign)
    : Element(theOwner, theName), Design(std::move(theDesign)), Now(Design), Left(this, &Now.At.Left),
      Top(this, &Now.At.Top), Width(this, &Now.At.Width), Height(this, &Now.At.Height), Visible(this, &Now.Visible),
      Enabled(this, &Now.Enabled)
{
}

void Control::SetFocus()
{
    Touch();
    ThePresentation().Focus(*this);
}

Label::Label(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Caption(this, &Now.Caption)
{
}

TextBox::TextBox(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Text(this, &Now.Caption)
{
}

Image::Image(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Picture(this, &Now.Picture)
{
}

Button::Button(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Caption(this, &Now.Caption)
{
}

CheckBox::CheckBox(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Value(this, &Now.Ticked)
{
}

MenuItem::MenuItem(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Caption(this, &Now.Caption), Checked(this, &Now.Ticked)
{
}

MenuItem::MenuItem(Form &theOwner, const char *theName, MenuItem &theMenu, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Caption(this, &Now.Caption), Checked(this, &Now.Ticked),
      Menu(&theMenu)
{
}

ListBox::ListBox(Form &theOwner, const char *theName, Face theDesign) : Control(theOwner, theName, std::move(theDesign))
{
}

void ListBox::RowsChanged()
{
    ++revision;
    Changed();
}

int ListBox::ListCount() const
{
    Touch();
    return static_cast<int>(NowRows.size());
}

const Text &ListBox::List(std::int64_t theIndex) const
{
    Touch();
    if (theIndex < 0 || theIndex >= static_cast<std::int64_t>(NowRows.size()))
        return noText;
    return NowRows[static_cast<std::size_t>(theIndex)];
}

void ListBox::SetList(std::int64_t theIndex, Text theText)
{
    Touch();
    const auto count = static_cast<std::int64_t>(NowRows.size());
    if (theIndex < 0 || theIndex > count)
        Fail("no such row", Name);
    if (theIndex == count)
        NowRows.push_back(std::move(theText));
    else
        NowRows[static_cast<std::size_t>(theIndex)] = std::move(theText);
    RowsChanged();
}

void ListBox::AddItem(Text theText)
{
    Touch();
    NowRows.push_back(std::move(theText));
    RowsChanged();
}

void ListBox::RemoveItem(std::int64_t theIndex)
{
    Touch();
    if (theIndex < 0 || theIndex >= static_cast<std::int64_t>(NowRows.size()))
        Fail("no such row", Name);
    NowRows.erase(NowRows.begin() + theIndex);
    if (NowIndex == theIndex)
        NowIndex = -1;
    else if (NowIndex > theIndex)
        --NowIndex;
    RowsChanged();
}

void ListBox::Clear()
{
    SetRows({});
}

void ListBox::SetRows(std::vector<Text> theRows)
{
    Touch();
    NowRows = std::move(theRows);
    NowIndex = -1;
    RowsChanged();
}

const std::vector<Text> &ListBox::Rows() const
{
    Touch();
    return NowRows;
}

const int &ListBox::GetIndex() const
{
    Touch();
    return NowIndex;
}

void ListBox::SetIndex(const int &theIndex)
{
    Touch();
    if (theIndex < -1 || theIndex >= static_cast<int>(NowRows.size()))
        Fail("no such row", Name);
    NowIndex = theIndex;
    Changed();
}

void ListBox::Reset()
{
    Control::Reset();
    NowRows.clear();
    NowIndex = -1;
    ++revision;
}

TextHolder::TextHolder(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign)), Text(this, &Now.Caption)
{
}

Timer::Timer(Form &theOwner, const char *theName, TimerValues theDesign)
    : Element(theOwner, theName), Design(theDesign), Now(theDesign), Interval(this, &Now.Interval),
      Enabled(this, &Now.Enabled)
{
}

// A directory's path as the lists keep it: no final backslash but at a drive's root.
static Text PlainPath(const Text &thePath)
{
    if (!HostFiles::IsDirectory(thePath))
        Fail("path not found", thePath);
    Text Result = thePath;
    while (Result.size() > 3 && Result.back() == '\\')
        Result.pop_back();
    if (Result.size() == 2)
        Result += '\\';
    return Result;
}

DirList::DirList(Form &theOwner, const char *theName, Face theDesign) : Control(theOwner, theName, std::move(theDesign))
{
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
    NowNames = NowPath.empty() ? nullptr : HostFiles::Directories(NowPath);
    Changed();
}

void DirList::Reset()
{
    Control::Reset();
    NowPath.clear();
    NowIndex = -1;
    NowNames.reset();
}

FileList::FileList(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign))
{
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
        names = path.empty() ? std::make_shared<const std::vector<Text>>() : HostFiles::Files(path);
        if (!pattern.empty()) {
            std::vector<Text> fitting;
            for (const Text &name : *names)
                if (HostFiles::FitsPattern(name, pattern))
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

DriveList::DriveList(Form &theOwner, const char *theName, Face theDesign)
    : Control(theOwner, theName, std::move(theDesign))
{
}

const Text &DriveList::GetDrive() const
{
    Touch();
    return NowDrive;
}

void DriveList::SetDrive(const Text &thePath)
{
    Touch();
    if (!HostFiles::DriveExists(thePath))
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

FileDialog::FileDialog(Form &theOwner, const char *theName) : Element(theOwner, theName) {}

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

Browser::Browser(Form &theOwner, const char *theName, Face theDesign, BrowserEvents theEvents)
    : Control(theOwner, theName, std::move(theDesign)), Events(theEvents)
{
}

void Browser::Reset()
{
    Control::Reset();
    NowAddress.clear();
}

void Browser::Navigate(const Text &theAddress)
{
    Touch();
    HostFiles::Settle();
    ThePresentation().Navigate(*this, theAddress);
}

void Browser::GoBack()
{
    Touch();
    if (!ThePresentation().GoBack(*this))
        Fail("no page to go back to", Name);
}

void Browser::GoForward()
{
    Touch();
    if (!ThePresentation().GoForward(*this))
        Fail("no page to go forward to", Name);
}

void Browser::Refresh()
{
    Touch();
    ThePresentation().Refresh(*this);
}

void Browser::Stop()
{
    Touch();
    ThePresentation().Stop(*this);
}

ToolBar::ToolBar(Form &theOwner, const char *theName, Face theDesign, std::vector<ToolButton> theButtons,
    void (*theClick)(const Text &theKey))
    : Control(theOwner, theName, std::move(theDesign)), Buttons(std::move(theButtons)), ButtonClick(theClick)
{
}
