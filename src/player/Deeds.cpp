// What the lines of a script do.
#include "core/TextOps.h"
#include "core/Utils.h"
#include "player/PageReader.h"
#include "player/Player.h"
#include "toolkit/HostFiles.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <cmath>

static void TraceFailure(const RuntimeFailure &theFailure, const char *theProcedure)
{
    Player::Say("trapped", theFailure.What + " (" + theFailure.Where + ") in " + theProcedure);
}

void Player::NeedPossible(const Deed &theDeed, bool wasPossible)
{
    if (!wasPossible)
        StopAt(theDeed, endScript, "no user could do that now");
}

void Player::Do(const Deed &theDeed)
{
    const Text &verb = theDeed.Verb;
    if (verb == "wait" || verb == "at")
        return;
    if (verb == "given") {
        if (!SetAppVar(theDeed.Target, theDeed.Rest))
            StopAt(theDeed, endScript, "there is no such variable");
    } else if (verb == "answer")
        answers.push_back(theDeed.Target);
    else if (verb == "file")
        files.push_back(theDeed.All());
    else if (verb == "trace")
        WhenTrapped = theDeed.Target == "on" ? TraceFailure : nullptr;
    else if (verb == "follow")
        Follow(theDeed);
    else if (verb == "said") {
        if (!Holds(lastBox, theDeed.All()))
            StopAt(theDeed, endExpectation, lastBox.empty() ? "no box has shown" : "the last box said: " + lastBox);
    } else if (verb == "ended")
        StopAt(theDeed, endExpectation, "the program goes on");
    else if (verb == "holds" || verb == "lacks")
        LookAtFile(theDeed);
    else if (Element *element = FindElement(theDeed.Target))
        DoTo(theDeed, *element);
    else
        StopAt(theDeed, endScript, "there is no " + theDeed.Target);
}

void Player::DoTo(const Deed &theDeed, Element &theElement)
{
    const Text &verb = theDeed.Verb;
    auto *form = dynamic_cast<Form *>(&theElement);
    auto *control = dynamic_cast<Control *>(&theElement);
    auto *box = dynamic_cast<TextBox *>(&theElement);
    auto *list = dynamic_cast<ListBox *>(&theElement);
    auto *dirs = dynamic_cast<DirList *>(&theElement);
    auto *drives = dynamic_cast<DriveList *>(&theElement);
    auto *bar = dynamic_cast<ToolBar *>(&theElement);
    auto *browser = dynamic_cast<Browser *>(&theElement);
    const int row = static_cast<int>(std::clamp(NumberAtStart(theDeed.Rest), -2.0, 1e9));

    if (verb == "open" && form)
        StartProgram(*form);
    else if (verb == "close" && form)
        NeedPossible(theDeed, UserClose(*form));
    else if (verb == "show" && form)
        ShowAll(theDeed);
    else if (verb == "size" && form) {
        const Text size = NumberText(std::round(form->Now.Width)) + "x" + NumberText(std::round(form->Now.Height));
        if (size != theDeed.Rest)
            StopAt(theDeed, endExpectation, "it is " + size);
    } else if (verb == "read" && browser)
        Say("page", HostFiles::IsFile(browser->NowAddress) ? TextOfPage(HostFiles::Read(browser->NowAddress))
                                                           : "(there is no such page)");
    else if (verb == "click" && bar)
        NeedPossible(theDeed, UserTool(*bar, theDeed.Rest));
    else if (verb == "click" && control)
        NeedPossible(theDeed, UserClick(*control));
    else if (verb == "refuse" && control) {
        if (CanReach(*control))
            StopAt(theDeed, endExpectation, "a user could click it");
    } else if (verb == "refuse" && form) {
        if (form->Visible && !form->CloseRefused)
            StopAt(theDeed, endExpectation, "a user could close it");
    } else if (verb == "type" && box) {
        for (const char key : theDeed.Rest)
            NeedPossible(theDeed, UserKey(*box, key));
    } else if (verb == "key" && box && theDeed.Rest == "Enter")
        NeedPossible(theDeed, UserKey(*box, '\r'));
    else if (verb == "key" && box && theDeed.Rest == "Clear")
        NeedPossible(theDeed, UserEdit(*box, ""));
    else if (verb == "select" && list)
        NeedPossible(theDeed, UserSelect(*list, row));
    else if (verb == "select" && dirs)
        NeedPossible(theDeed, UserHighlight(*dirs, row));
    else if (verb == "doubleclick" && list)
        NeedPossible(theDeed, UserDoubleClick(*list));
    else if (verb == "go" && dirs)
        NeedPossible(theDeed, UserGo(*dirs, theDeed.Rest));
    else if (verb == "go" && drives)
        NeedPossible(theDeed, UserPick(*drives, theDeed.Rest));
    else if (verb == "expect") {
        if (const Text value = ValueOf(theElement); value != theDeed.Rest)
            StopAt(theDeed, endExpectation, "it is \"" + value + "\"");
    } else if (verb == "print")
        Say("print", theDeed.Target + " = " + ValueOf(theElement));
    else
        StopAt(theDeed, endScript, "no such deed for a " + Text(theElement.Kind()));
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
void Player::LookAtFile(const Deed &theDeed)
{
    HostFiles::Settle();
    const Text file = HostFiles::ProgramDir() + "\\" + theDeed.Target;
    const bool isFile = HostFiles::IsFile(file);
    const bool isThere = isFile || HostFiles::IsDirectory(file);
    const bool holds = isThere && (theDeed.Rest.empty() || (isFile && Holds(HostFiles::Read(file), theDeed.Rest)));
    if (holds != (theDeed.Verb == "holds"))
        StopAt(theDeed, endExpectation, !isThere ? "it isn't there" : holds ? "it does" : "it does not");
}

void Player::ShowAll(const Deed &theDeed)
{
    const Form &form = *FindForm(theDeed.Target);
    Say("shows", Text(form.Name) + (form.Visible ? "" : " (not showing)") + " \"" + form.Now.Caption + "\"");
    for (const Element *element : form.Elements()) {
        const auto *control = dynamic_cast<const Control *>(element);
        if (!control || !IsSeen(*control))
            continue;
        const auto *item = dynamic_cast<const MenuItem *>(control);
        const Text says = item ? ReplaceText(control->Now.Caption, "&", "") : control->Now.Says;
        Say("", Text(control->Name) + ", " + control->Kind() + (says.empty() ? "" : " \"" + says + "\"") +
                    (control->Now.Enabled ? ": " : " (disabled): ") + ValueOf(*control));
    }
}

void Player::Follow(const Deed &theDeed)
{
    for (auto &[browser, history] : histories) {
        if (!browser->Owner.Visible || history.Pages.empty())
            continue;
        const Text page = history.Pages[history.At];
        const Text address = HostFiles::IsFile(page) ? AddressOfLink(HostFiles::Read(page), theDeed.All()) : "";
        if (address.empty())
            StopAt(theDeed, endScript, "there is no such link on " + page);
        Navigate(*browser, AddressFrom(page, address));
        return;
    }
    StopAt(theDeed, endScript, "no browser is showing");
}
