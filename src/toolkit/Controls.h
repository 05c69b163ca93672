// The controls of the toolkit.
//
// Does assigning a property in code raise the control's event?
//   Dir1.Path       Change, when the path is another one than before
//   Drive1.Drive    Change, when the drive is another one than before
//   TextBox.Text    nothing
//   CheckBox.Value  nothing
//   ListBox rows, ListIndex   nothing
//   Timer.Interval, Enabled   nothing; the interval of an enabled timer starts again
//   Form.Width, Height        nothing; only the user causes Resize
#pragma once
#include "toolkit/Form.h"
#include <memory>

// What a control is for. A presentation derives its shape, its keys, its tip and whether Tab stops at it from this.
enum class Role {
    None,
    Next,       // goes on to the next screen
    Back,       // goes back to the screen before
    Primary,    // the one thing to press on a screen that has no Next
    Cancel,     // ends the run
    Help,       // a help spot
    HelpText,   // the text of the help box
    CloseHelp,  // closes the help box
    Tile,       // a large button of the main menu
    Card,       // a picture that fills the upper part of a card
    Repeat,     // does the same as an earlier control; for the mouse only
};

// How a control's text is drawn; the presentation knows the fonts and colours.
enum class TextStyle { Body, Title, SubTitle, Dim, Value, Counter, HelpHeading, HelpText, Status, Splash };

// A control's position and size in pixels, counted from the upper left corner of the screen's body.
struct Place {
    double Left = 0, Top = 0, Width = 0, Height = 0;
};

// The values of a visible control.
struct Face {
    Place At = {};
    Text Caption = {};         // what it shows: a label's caption, a text box's text, a menu item's words
    Text AccessibleName = {};  // for screen readers; also the tip of a picture
    Text Picture = {};         // path of its picture
    TextStyle Style = TextStyle::Body;
    Role As = Role::None;
    bool Visible = true;
    bool Enabled = true;
    bool Ticked = false;
    bool Multiline = false;
    Handler Click = nullptr;
    Handler DblClick = nullptr;
    Handler Change = nullptr;
    std::function<void(int &KeyAscii)> KeyPress = nullptr;  // before the key takes effect; 0 swallows it
};

class Control : public Element
{
public:
    Control(Form &theOwner, const char *theName, Face theDesign)
        : Element(theOwner, theName), Design(std::move(theDesign)), Now(Design)
    {
    }
    Face Design, Now;
    Property<double> Left{this, &Now.At.Left}, Top{this, &Now.At.Top}, Width{this, &Now.At.Width},
        Height{this, &Now.At.Height};
    Property<bool> Visible{this, &Now.Visible}, Enabled{this, &Now.Enabled};
    // Puts the keyboard's focus on it.
    void SetFocus();
    void Reset() override { Now = Design; }
};

class Label : public Control
{
public:
    using Control::Control;
    Property<Text> Caption{this, &Now.Caption};
    const char *Kind() const override { return "label"; }
};

class TextBox : public Control
{
public:
    using Control::Control;
    Property<::Text> Text{this, &Now.Caption};
    const char *Kind() const override { return "text box"; }
};

// A picture; with a Click it is a button.
class Image : public Control
{
public:
    using Control::Control;
    Property<Text> Picture{this, &Now.Picture};
    const char *Kind() const override { return "picture"; }
};

// A plain push button with a caption.
class Button : public Control
{
public:
    using Control::Control;
    Property<Text> Caption{this, &Now.Caption};
    const char *Kind() const override { return "button"; }
};

class CheckBox : public Control
{
public:
    using Control::Control;
    Property<bool> Value{this, &Now.Ticked};
    const char *Kind() const override { return "check box"; }
};

// An item of the menu bar: a menu of its own, or an item of theMenu. A caption of "-" is a separator.
class MenuItem : public Control
{
public:
    using Control::Control;
    MenuItem(Form &theOwner, const char *theName, MenuItem &theMenu, Face theDesign)
        : Control(theOwner, theName, std::move(theDesign)), Menu(&theMenu)
    {
    }
    Property<Text> Caption{this, &Now.Caption};
    Property<bool> Checked{this, &Now.Ticked};
    MenuItem *const Menu = nullptr;
    const char *Kind() const override { return "menu item"; }
};

// A frame with a background of its own; Shape is a filled box inside a frame, placed from the frame's corner.
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

// A list of rows, counted from 0, in the order in which they were added.
class ListBox : public Control
{
public:
    using Control::Control;
    int ListCount() const;
    // The text of a row; empty when there is no such row.
    const Text &List(std::int64_t theIndex) const;
    // Sets a row's text. One past the end adds the row; any other missing row is a run-time failure.
    void SetList(std::int64_t theIndex, Text theText);
    void AddItem(Text theText);
    // Removes a row; a run-time failure when there is no such row. Nothing is selected then if it was the selected row.
    void RemoveItem(std::int64_t theIndex);
    void Clear();
    // Replaces all rows at once; nothing is selected then.
    void SetRows(std::vector<Text> theRows);
    const std::vector<Text> &Rows() const;
    // The selected row, -1 when none is; assigning a row that isn't there is a run-time failure.
    Accessor<ListBox, int> ListIndex{this, &ListBox::GetIndex, &ListBox::SetIndex};
    // Counts the changes of the rows, for code that keeps something made from them.
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
    using Control::Control;
    Property<::Text> Text{this, &Now.Caption};
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
    Timer(Form &theOwner, const char *theName, TimerValues theDesign)
        : Element(theOwner, theName), Design(std::move(theDesign)), Now(Design)
    {
    }
    TimerValues Design, Now;
    Property<int> Interval{this, &Now.Interval};
    Property<bool> Enabled{this, &Now.Enabled};
    bool Running = false;  // its handler has been entered and has not come back
    const char *Kind() const override { return "timer"; }
    void Reset() override { Now = Design; }
};

struct BrowserEvents {
    std::function<void(const Text &theAddress)> BeforeNavigate = nullptr;
    std::function<void(const Text &theText)> StatusTextChange = nullptr;
    std::function<void(const Text &theTitle)> TitleChange = nullptr;
};
// An embedded browser. GoBack and GoForward fail with a run-time failure when there is no such page.
class Browser : public Control
{
public:
    Browser(Form &theOwner, const char *theName, Face theDesign, BrowserEvents theEvents)
        : Control(theOwner, theName, std::move(theDesign)), Events(std::move(theEvents))
    {
    }
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
    using ClickHandler = std::function<void(const Text &theKey)>;
    ToolBar(
        Form &theOwner, const char *theName, Face theDesign, std::vector<ToolButton> theButtons, ClickHandler theClick)
        : Control(theOwner, theName, std::move(theDesign)), Buttons(std::move(theButtons)),
          ButtonClick(std::move(theClick))
    {
    }
    const std::vector<ToolButton> Buttons;
    const ClickHandler ButtonClick;
    const char *Kind() const override { return "tool bar"; }
};
