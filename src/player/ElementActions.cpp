#include "player/ElementActions.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "player/PageReader.h"
#include "player/Transcript.h"
#include "toolkit/Gates.h"
#include "toolkit/Pickers.h"
#include <algorithm>
#include <cmath>

static Outcome Require(bool wasPossible)
{
    return wasPossible ? Outcome{} : Outcome{endScript, "no user could do that now"};
}

static Outcome Expect(bool isMet, const Text &theWhy)
{
    return isMet ? Outcome{} : Outcome{endExpectation, theWhy};
}

static Outcome ExpectSize(const Action &theAction, double theWidth, double theHeight)
{
    const Text size = NumberText(std::round(theWidth)) + "x" + NumberText(std::round(theHeight));
    return Expect(size == theAction.Rest, "it is " + size);
}

static Outcome Unknown(const Element &theElement)
{
    return {endScript, "no such action for a " + Text(theElement.Kind())};
}

static bool ShowsNothing(const Control &theControl)
{
    return dynamic_cast<const Image *>(&theControl) && theControl.Now.Picture.empty();
}

// What a user cannot see: a control beyond the right edge, as the help box is while it is in, an item of a hidden menu,
// and a picture control without a picture.
static bool IsSeen(const Control &theControl)
{
    if (const auto *item = dynamic_cast<const MenuItem *>(&theControl); item && item->Menu && !item->Menu->Now.Visible)
        return false;
    return theControl.Now.Visible && theControl.Now.At.Left < theControl.Owner.Now.Width && !ShowsNothing(theControl);
}

static void ShowAll(const Form &theForm)
{
    Say("shows", Text(theForm.Name) + (theForm.Visible ? "" : " (not showing)") + " \"" + theForm.Now.Caption + "\"");
    for (const Element *element : theForm.Elements()) {
        const auto *control = dynamic_cast<const Control *>(element);
        if (!control || !IsSeen(*control))
            continue;
        const auto *item = dynamic_cast<const MenuItem *>(control);
        const Text name = item ? ReplaceText(control->Now.Caption, "&", "") : control->Now.AccessibleName;
        Say("", Text(control->Name) + ", " + control->Kind() + (name.empty() ? "" : " \"" + name + "\"") +
                    (control->Now.Enabled ? ": " : " (disabled): ") + ValueOf(*control));
    }
}

static Outcome DoToForm(const Action &theAction, Form &theForm)
{
    const Text &verb = theAction.Verb;
    if (verb == "close")
        return Require(UserClose(theForm));
    if (verb == "refuse")
        return Expect(!theForm.Visible || theForm.CloseRefused, "a user could close it");
    if (verb == "size")
        return ExpectSize(theAction, theForm.Now.Width, theForm.Now.Height);
    if (verb == "resize") {
        const Text &size = theAction.Rest;
        return Require(theForm.Design.Sizable &&
                       UserResize(theForm, NumberAtStart(size), NumberAtStart(size.substr(size.find('x') + 1))));
    }
    if (verb == "open")
        StartProgram(theForm);
    else if (verb == "show")
        ShowAll(theForm);
    else
        return Unknown(theForm);
    return {};
}

static Outcome DoToTextBox(const Action &theAction, TextBox &theBox)
{
    if (theAction.Verb == "type") {
        for (const char key : theAction.Rest)
            if (!UserKey(theBox, key))
                return Require(false);
        return {};
    }
    if (theAction.Verb == "key" && theAction.Rest == "Enter")
        return Require(UserKey(theBox, '\r'));
    if (theAction.Verb == "key" && theAction.Rest == "Clear")
        return Require(UserEdit(theBox, ""));
    return Unknown(theBox);
}

static Outcome DoToControl(const Action &theAction, Control &theControl)
{
    const Text &verb = theAction.Verb;
    auto *bar = dynamic_cast<ToolBar *>(&theControl);
    auto *box = dynamic_cast<TextBox *>(&theControl);
    auto *list = dynamic_cast<ListBox *>(&theControl);
    auto *dirs = dynamic_cast<DirList *>(&theControl);
    auto *drives = dynamic_cast<DriveList *>(&theControl);
    auto *browser = dynamic_cast<Browser *>(&theControl);
    const int row = static_cast<int>(std::clamp(NumberAtStart(theAction.Rest), -1e9, 1e9));

    if (verb == "click" && IsReachable(theControl) && ShowsNothing(theControl))
        return {endScript, "nobody could click it: it shows no picture"};
    if (verb == "click")
        return Require(bar ? UserTool(*bar, theAction.Rest) : UserClick(theControl));
    if (verb == "refuse")
        return Expect(!IsReachable(theControl) || ShowsNothing(theControl), "a user could click it");
    if (verb == "size")
        return ExpectSize(theAction, theControl.Now.At.Width, theControl.Now.At.Height);
    if (verb == "select" && list)
        return Require(UserSelect(*list, row));
    if (verb == "select" && dirs)
        return Require(UserHighlight(*dirs, row));
    if (verb == "doubleclick" && list)
        return Require(UserDoubleClick(*list));
    if (verb == "go" && dirs)
        return Require(UserGo(*dirs, theAction.Rest));
    if (verb == "go" && drives)
        return Require(UserPick(*drives, theAction.Rest));
    if (verb == "read" && browser) {
        const Text &page = browser->NowAddress;
        Say("page", Files::IsFile(page) ? TextOfPage(Files::Read(page)) : "(there is no such page)");
        return {};
    }
    return box ? DoToTextBox(theAction, *box) : Unknown(theControl);
}

Outcome DoToElement(const Action &theAction, Element &theElement)
{
    if (theAction.Verb == "expect") {
        const Text value = ValueOf(theElement);
        return Expect(value == theAction.Rest, "it is \"" + value + "\"");
    }
    if (theAction.Verb == "print") {
        Say("print", theAction.Target + " = " + ValueOf(theElement));
        return {};
    }
    if (auto *form = dynamic_cast<Form *>(&theElement))
        return DoToForm(theAction, *form);
    auto *control = dynamic_cast<Control *>(&theElement);
    return control ? DoToControl(theAction, *control) : Unknown(theElement);
}

Outcome CheckFile(const Action &theAction)
{
    const Text file = Paths::ProgramDir() + "\\" + theAction.Target;
    const bool isFile = Files::IsFile(file);
    const bool exists = isFile || Files::IsDirectory(file);
    const bool holds = exists && (theAction.Rest.empty() || (isFile && Contains(Files::Read(file), theAction.Rest)));
    const Text found = theAction.Rest.empty() ? "it exists" : holds ? "it contains that" : "it does not contain that";
    return Expect(holds == (theAction.Verb == "holds"), exists ? found : "it does not exist");
}
