// The controls of the toolkit.
//
// Does assigning a property in code raise the control's event?
//   Dir1.Path       Change, when the path is another one than before
//   Drive1.Drive    Change, when the drive is another one than before
//   TextBox.Text    nothing
//   CheckBox.Value  nothing
//   ListBox rows, ListIndex   nothing
//   Timer.Interval, Enabled   nothing; an enabled timer starts its interval anew
//   Form.Width, Height        nothing; Resize is the user's doing alone
#pragma once
#include "toolkit/Form.h"
#include <memory>

// How a control is drawn; the presentation knows the fonts and colours.
enum class Look { Body, Title, SubTitle, Dim, Value, Counter, HelpHeading, HelpText, Status, Splash };

// Where a control stands, in pixels; left and top count from the upper left corner of the screen's body.
struct Place {
    double Left = 0, Top = 0, Width = 0, Height = 0;
};

// What a visible control is at design and now.
struct Face {
    Place At = {};
    Text Caption = {};  // what it shows: a label's caption, a text box's text, a menu item's words
    Text Says = {};     // what a picture says to who can't see it; also its tip
    Text Picture = {};  // path of its picture
    Look Style = Look::Body;
    bool Visible = true;
    bool Enabled = true;
    bool Ticked = false;
    bool Multiline = false;
    Handler Click = nullptr;
    Handler DblClick = nullptr;
    Handler Change = nullptr;
    void (*KeyPress)(int &KeyAscii) = nullptr;  // before the key takes effect; 0 swallows it
};

class Control : public Element
{
public:
    Control(Form &theOwner, const char *theName, Face theDesign);
    Face Design, Now;
    Property<double> Left, Top, Width, Height;
    Property<bool> Visible, Enabled;
    // Puts the keyboard's focus on it.
    void SetFocus();
    void Reset() override { Now = Design; }
};

class Label : public Control
{
public:
    Label(Form &theOwner, const char *theName, Face theDesign);
    Property<Text> Caption;
    const char *Kind() const override { return "label"; }
};

class TextBox : public Control
{
public:
    TextBox(Form &theOwner, const char *theName, Face theDesign);
    Property<::Text> Text;
    const char *Kind() const override { return "text box"; }
};

// A picture; with a Click it is a button.
class Image : public Control
{
public:
    Image(Form &theOwner, const char *theName, Face theDesign);
    Property<Text> Picture;
    const char *Kind() const override { return "picture"; }
};

// A plain push button with a caption.
class Button : public Control
{
public:
    Button(Form &theOwner, const char *theName, Face theDesign);
    Property<Text> Caption;
    const char *Kind() const override { return "button"; }
};

class CheckBox : public Control
{
public:
    CheckBox(Form &theOwner, const char *theName, Face theDesign);
    Property<bool> Value;
    const char *Kind() const override { return "check box"; }
};

// An item of the menu bar: a menu of its own, or an item of theMenu. A caption of "-" is a separator.
class MenuItem : public Control
{
public:
    MenuItem(Form &theOwner, const char *theName, Face theDesign);
    MenuItem(Form &theOwner, const char *theName, MenuItem &theMenu, Face theDesign);
    Property<Text> Caption;
    Property<bool> Checked;
    MenuItem *const Menu = nullptr;
    const char *Kind() const override { return "menu item"; }
};

// A frame with a ground of its own; Shape is a filled box inside a frame, placed from the frame's corner.
class Frame : public Control
{
public:
    using Control::Control;
    const char *Kind() const override { return "frame"; }
};
class Shape : public Control
{
public:
    Shape(Frame &theFrame, const char *theName, Face theDesign)
        : Control(theFrame.Owner, theName, std::move(theDesign)), Inside(theFrame)
    {
    }
    Frame &Inside;
    const char *Kind() const override { return "shape"; }
};

// An ordered list of rows, addressed from 0, in the order of their adding.
class ListBox : public Control
{
public:
    ListBox(Form &theOwner, const char *theName, Face theDesign);
    int ListCount() const;
    // The text of a row; empty when there is no such row.
    const Text &List(std::int64_t theIndex) const;
    // Sets a row's text. One past the end adds the row; any other missing row is a run-time failure.
    void SetList(std::int64_t theIndex, Text theText);
    void AddItem(Text theText);
    // Takes a row out; a run-time failure when there is no such row. The selection is gone if it was that row.
    void RemoveItem(std::int64_t theIndex);
    void Clear();
    // Replaces all rows at once; nothing is selected then.
    void SetRows(std::vector<Text> theRows);
    const std::vector<Text> &Rows() const;
    // The selected row, -1 when none is; assigning a row that isn't there is a run-time failure.
    Accessor<ListBox, int> ListIndex{this, &ListBox::GetIndex, &ListBox::SetIndex};
    // Counts the changes of the rows: who keeps something made from the rows compares it.
    std::uint64_t Revision() const { return revision; }

    std::vector<Text> NowRows;  // for presentations: the rows as they stand
    int NowIndex = -1;
    const char *Kind() const override { return "list"; }
    void Reset() override;

private:
    const int &GetIndex() const;
    void SetIndex(const int &theIndex);
    void RowsChanged();
    std::uint64_t revision = 0;
};

// Holds one whole text; used as a store.
class TextHolder : public Control
{
public:
    TextHolder(Form &theOwner, const char *theName, Face theDesign);
    Property<::Text> Text;
    const char *Kind() const override { return "text holder"; }
};

struct TimerValues {
    int Interval = 0;  // milliseconds
    bool Enabled = true;
    Handler Tick = nullptr;
};
class Timer : public Element
{
public:
    Timer(Form &theOwner, const char *theName, TimerValues theDesign);
    TimerValues Design, Now;
    Property<int> Interval;
    Property<bool> Enabled;
    bool Running = false;  // its handler has been entered and has not come back
    const char *Kind() const override { return "timer"; }
    void Reset() override { Now = Design; }
};

// The subdirectories of a path, as full paths, ascending by name ignoring case.
class DirList : public Control
{
public:
    DirList(Form &theOwner, const char *theName, Face theDesign);
    // The current directory, without a final backslash unless it is a drive's root. Assigning it reads the rows; a
    // run-time failure when there is no such directory.
    Accessor<DirList, Text> Path{this, &DirList::GetPath, &DirList::SetPath};
    int ListCount() const;
    // Row theIndex as a full path. Row -1 is the current directory, row -2 the one above it and so on, up to the
    // drive's root; what lies beyond either end is empty.
    Text List(int theIndex) const;
    // How many directories lead to the current one, itself included.
    int Depth() const;
    // The highlighted row, -1 when it is the current directory.
    int ListIndex() const;
    void Refresh();

    Text NowPath;
    int NowIndex = -1;
    std::shared_ptr<const std::vector<Text>> NowNames;
    const char *Kind() const override { return "directory list"; }
    void Reset() override;

private:
    const Text &GetPath() const;
    void SetPath(const Text &thePath);
};

// The files of a path as bare names, ascending ignoring case, hidden ones left out.
class FileList : public Control
{
public:
    FileList(Form &theOwner, const char *theName, Face theDesign);
    // The directory listed. The rows are read when they are first asked for; assigning a directory that isn't there
    // is a run-time failure.
    Accessor<FileList, Text> Path{this, &FileList::GetPath, &FileList::SetPath};
    // Only names that fit are listed; "*" and "?" are wildcards, an empty pattern lists all.
    Accessor<FileList, Text> Pattern{this, &FileList::GetPattern, &FileList::SetPattern};
    int ListCount() const;
    // The name in a row; empty when there is no such row.
    Text List(int theIndex) const;
    void Refresh();

    const char *Kind() const override { return "file list"; }
    void Reset() override;

private:
    const Text &GetPath() const;
    void SetPath(const Text &thePath);
    const Text &GetPattern() const;
    void SetPattern(const Text &thePattern);
    const std::vector<Text> &Names() const;
    Text path, pattern;
    mutable std::shared_ptr<const std::vector<Text>> names;
};

// The drives of the machine as "c:".
class DriveList : public Control
{
public:
    DriveList(Form &theOwner, const char *theName, Face theDesign);
    // The picked drive. Assigning a path picks its drive; a run-time failure when there is no such drive.
    Accessor<DriveList, Text> Drive{this, &DriveList::GetDrive, &DriveList::SetDrive};
    Text NowDrive;
    const char *Kind() const override { return "drive list"; }
    void Reset() override;

private:
    const Text &GetDrive() const;
    void SetDrive(const Text &thePath);
};

// Asks for an existing file. Filter is "Words (*.txt)|*.txt|(*.*)|*.*|".
class FileDialog : public Element
{
public:
    FileDialog(Form &theOwner, const char *theName);
    Text Filter;
    Text FileName;  // the chosen file's full path; empty when the user cancelled
    void ShowOpen();
    const char *Kind() const override { return "file dialog"; }
    void Reset() override;
};

struct BrowserEvents {
    void (*BeforeNavigate)(const Text &theAddress) = nullptr;
    void (*StatusTextChange)(const Text &theText) = nullptr;
    void (*TitleChange)(const Text &theTitle) = nullptr;
};
// An embedded browser. GoBack and GoForward fail with a run-time failure when there is no such page.
class Browser : public Control
{
public:
    Browser(Form &theOwner, const char *theName, Face theDesign, BrowserEvents theEvents);
    // Opens a local path or a web address.
    void Navigate(const Text &theAddress);
    void GoBack();
    void GoForward();
    void Refresh();
    void Stop();
    const BrowserEvents Events;
    Text NowAddress;  // of the page it shows, kept by the presentation
    void Reset() override;
    const char *Kind() const override { return "browser"; }
};

struct ToolButton {
    Text Key, Caption, Tip;
};
class ToolBar : public Control
{
public:
    ToolBar(Form &theOwner, const char *theName, Face theDesign, std::vector<ToolButton> theButtons,
        void (*theClick)(const Text &theKey));
    const std::vector<ToolButton> Buttons;
    void (*const ButtonClick)(const Text &theKey);
    const char *Kind() const override { return "tool bar"; }
};
