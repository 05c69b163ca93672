// What the lines of a script do.
#include "core/TextOps.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "player/PageReader.h"
#include "player/Player.h"
#include "toolkit/Gates.h"
#include "toolkit/Pickers.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <cmath>

static void TraceFailure(const RuntimeFailure &theFailure, const char *theProcedure)
{
    Player::Say("trapped", theFailure.What + " (" + theFailure.Where + ") in " + theProcedure);
}

void Player::NeedPossible(const Action &theAction, bool wasPossible)
{
    if (!wasPossible)
        StopAt(theAction, endScript, "no user could do that now");
}

void Player::Do(const Action &theAction)
{
    const Text &verb = theAction.Verb;
    if (verb == "wait" || verb == "at")
        return;
    if (verb == "given") {
        if (!SetAppVar(theAction.Target, theAction.Rest))
            StopAt(theAction, endScript, "there is no such variable");
    } else if (verb == "answer")
        answers.push_back(theAction.Target);
    else if (verb == "file")
        files.push_back(theAction.All());
    else if (verb == "trace")
        OnTrapped = theAction.Target == "on" ? TraceFailure : nullptr;
    else if (verb == "follow")
        Follow(theAction);
    else if (verb == "said") {
        if (!Contains(lastBox, theAction.All()))
            StopAt(theAction, endExpectation, lastBox.empty() ? "no box has shown" : "the last box said: " + lastBox);
    } else if (verb == "ended")
        StopAt(theAction, endExpectation, "the program goes on");
    else if (verb == "holds" || verb == "lacks")
        LookAtFile(theAction);
    else if (Element *element = FindElement(theAction.Target))
        DoTo(theAction, *element);
    else
        StopAt(theAction, endScript, "there is no " + theAction.Target);
}

void Player::DoTo(const Action &theAction, Element &theElement)
{
    const Text &verb = theAction.Verb;
    auto *form = dynamic_cast<Form *>(&theElement);
    auto *control = dynamic_cast<Control *>(&theElement);
    auto *box = dynamic_cast<TextBox *>(&theElement);
    auto *list = dynamic_cast<ListBox *>(&theElement);
    auto *dirs = dynamic_cast<DirList *>(&theElement);
    auto *drives = dynamic_cast<DriveList *>(&theElement);
    auto *bar = dynamic_cast<ToolBar *>(&theElement);
    auto *browser = dynamic_cast<Browser *>(&theElement);
    const int row = static_cast<int>(std::clamp(NumberAtStart(theAction.Rest), -2.0, 1e9));

    if (verb == "open" && form)
        StartProgram(*form);
    else if (verb == "close" && form)
        NeedPossible(theAction, UserClose(*form));
    else if (verb == "show" && form)
        ShowAll(theAction);
    else if (verb == "size" && form) {
        const Text size = NumberText(std::round(form->Now.Width)) + "x" + NumberText(std::round(form->Now.Height));
        if (size != theAction.Rest)
            StopAt(theAction, endExpectation, "it is " + size);
    } else if (verb == "read" && browser)
        Say("page", Files::IsFile(browser->NowAddress) ? TextOfPage(Files::Read(browser->NowAddress))
                                                       : "(there is no such page)");
    else if (verb == "click" && bar)
        NeedPossible(theAction, UserTool(*bar, theAction.Rest));
    else if (verb == "click" && control)
        NeedPossible(theAction, UserClick(*control));
    else if (verb == "refuse" && control) {
        if (IsReachable(*control))
            StopAt(theAction, endExpectation, "a user could click it");
    } else if (verb == "refuse" && form) {
        if (form->Visible && !form->CloseRefused)
            StopAt(theAction, endExpectation, "a user could close it");
    } else if (verb == "type" && box) {
        for (const char key : theAction.Rest)
            NeedPossible(theAction, UserKey(*box, key));
    } else if (verb == "key" && box && theAction.Rest == "Enter")
        NeedPossible(theAction, UserKey(*box, '\r'));
    else if (verb == "key" && box && theAction.Rest == "Clear")
        NeedPossible(theAction, UserEdit(*box, ""));
    else if (verb == "select" && list)
        NeedPossible(theAction, UserSelect(*list, row));
    else if (verb == "select" && dirs)
        NeedPossible(theAction, UserHighlight(*dirs, row));
    else if (verb == "doubleclick" && list)
        NeedPossible(theAction, UserDoubleClick(*list));
    else if (verb == "go" && dirs)
        NeedPossible(theAction, UserGo(*dirs, theAction.Rest));
    else if (verb == "go" && drives)
        NeedPossible(theAction, UserPick(*drives, theAction.Rest));
    else if (verb == "expect") {
        if (const Text value = ValueOf(theElement); value != theAction.Rest)
            StopAt(theAction, endExpectation, "it is \"" + value + "\"");
    } else if (verb == "print")
        Say("print", theAction.Target + " = " + ValueOf(theElement));
    else
        StopAt(theAction, endScript, "no such action for a " + Text(theElement.Kind()));
}

// What lies beyond the edge, as the help box does while it is in, isn't seen, nor is a picture without a picture.
static bool IsSeen(const Control &theControl)
{
    if (const auto *item = dynamic_cast<const MenuItem *>(&theControl); item && item->Menu && !item->Menu->Now.Visible)
        return false;
    return theControl.Now.Visible && theControl.Now.At.Left < theControl.Owner.Now.Width &&
           !(dynamic_cast<const Image *>(&theControl) && theControl.Now.Picture.empty());
}

// A file of the program directory: whether it is there, and holds a text.
void Player::LookAtFile(const Action &theAction)
{
    PendingWrites::Flush();
    const Text file = Paths::ProgramDir() + "\\" + theAction.Target;
    const bool isFile = Files::IsFile(file);
    const bool isThere = isFile || Files::IsDirectory(file);
    const bool holds = isThere && (theAction.Rest.empty() || (isFile && Contains(Files::Read(file), theAction.Rest)));
    if (holds != (theAction.Verb == "holds"))
        StopAt(theAction, endExpectation, !isThere ? "it isn't there" : holds ? "it does" : "it does not");
}

void Player::ShowAll(const Action &theAction)
{
    const Form &form = *FindForm(theAction.Target);
    Say("shows", Text(form.Name) + (form.Visible ? "" : " (not showing)") + " \"" + form.Now.Caption + "\"");
    for (const Element *element : form.Elements()) {
        const auto *control = dynamic_cast<const Control *>(element);
        if (!control || !IsSeen(*control))
            continue;
        const auto *item = dynamic_cast<const MenuItem *>(control);
        const Text says = item ? ReplaceText(control->Now.Caption, "&", "") : control->Now.AccessibleName;
        Say("", Text(control->Name) + ", " + control->Kind() + (says.empty() ? "" : " \"" + says + "\"") +
                    (control->Now.Enabled ? ": " : " (disabled): ") + ValueOf(*control));
    }
}

void Player::Follow(const Action &theAction)
{
    for (auto &[browser, history] : histories) {
        if (!browser->Owner.Visible || history.Pages.empty())
            continue;
        const Text page = history.Pages[history.At];
        const Text address = Files::IsFile(page) ? AddressOfLink(Files::Read(page), theAction.All()) : "";
        if (address.empty())
            StopAt(theAction, endScript, "there is no such link on " + page);
        Navigate(*browser, AddressFrom(page, address));
        return;
    }
    StopAt(theAction, endScript, "no browser is showing");
}
