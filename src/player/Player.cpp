#include "player/Player.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "player/PageReader.h"
#include "toolkit/HostFiles.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>

namespace
{
constexpr long never = std::numeric_limits<long>::max();
constexpr long patience = 3'600'000;  // of the player's clock: a screen that isn't there within the hour never comes

// Text of several lines, indented under its heading.
Text Indented(const Text &theText)
{
    Text Result;
    for (const char c : theText)
        if (c != '\r')
            Result += c == '\n' ? Text("\n          ") : Text(1, c);
    return Result;
}

void Say(const Text &theWhat, const Text &theText)
{
    std::cout << theWhat << Text(theWhat.size() < 10 ? 10 - theWhat.size() : 1, ' ') << Indented(theText) << '\n';
}

void TraceFailure(const RuntimeFailure &theFailure, const char *theProcedure)
{
    Say("trapped", theFailure.What + " (" + theFailure.Where + ") in " + theProcedure);
}
}  // namespace

int Player::Play(Form &theFirstForm)
{
    Present(this);
    StartProgram(theFirstForm);
    while (!hasEnded) {
        PlayLines();
        if (hasEnded || next == script.size())
            break;
        const long start = now;
        while (!hasEnded && next < script.size() && IsHeldBack(script[next]))
            if (!AdvanceToNextTimer() || now - start > patience)
                StopAt(script[next], endScript, "this will never come: nothing moves the program any more");
    }
    Finish();
    if (hasEnded && code == 0 && next < script.size() && script[next].Verb != "ended") {
        std::cerr << "line " << script[next].Line << ": the program has ended before it\n";
        code = endScript;
    }
    return code;
}

void Player::Finish()
{
    if (!hasEnded)
        HostFiles::Settle();
    for (const auto &[text, count] : boxes)
        if (count > 1)
            Say("boxes", "shown " + std::to_string(count) + " times: " + text.substr(0, text.find('\r')));
    std::cout.flush();
}

void Player::StopAt(const Deed &theDeed, int theCode, const Text &theWhy)
{
    std::cout.flush();
    std::cerr << "line " << theDeed.Line << ": " << theDeed.Verb << ' ' << theDeed.All() << ": " << theWhy << '\n';
    Finish();
    // From wherever the program stands: a user who gives up doesn't wait for it either.
    std::_Exit(theCode);
}

void Player::Show(Form &theForm)
{
    timersChanged = true;
    shown.insert(&theForm);
    Say("screen", Text(theForm.Name) + " \"" + theForm.Now.Caption + "\"");
}

void Player::Unload(Form &theForm)
{
    timersChanged = true;
    std::erase_if(histories, [&](const auto &history) { return &history.first->Owner == &theForm; });
    if (shown.erase(&theForm))
        Say("closed", theForm.Name);
}

void Player::Changed(Element &theElement)
{
    if (auto *timer = dynamic_cast<Timer *>(&theElement)) {
        due.erase(timer);
        timersChanged = true;
    }
}

void Player::FindTimers()
{
    timersChanged = false;
    nextDue = never;
    for (const Form *form : Form::All())
        for (Element *element : form->Elements()) {
            auto *timer = dynamic_cast<Timer *>(element);
            if (!timer)
                continue;
            if (!form->Loaded || !timer->Now.Enabled || timer->Now.Interval <= 0) {
                due.erase(timer);
                continue;
            }
            const long when = due.try_emplace(timer, now + timer->Now.Interval).first->second;
            if (!timer->Running)
                nextDue = std::min(nextDue, when);
        }
}

void Player::TickDueTimers()
{
    if (timersChanged)
        FindTimers();
    if (now < nextDue)
        return;
    std::vector<Timer *> ticking;
    for (const auto &[timer, when] : due)
        if (when <= now && !timer->Running)
            ticking.push_back(timer);
    for (Timer *timer : ticking) {
        if (due.contains(timer))
            due[timer] = now + timer->Now.Interval;
        timersChanged = true;
        TimerTick(*timer);
        timersChanged = true;
    }
    FindTimers();
}

bool Player::AdvanceToNextTimer()
{
    FindTimers();
    if (nextDue == never)
        return false;
    now = std::max(now, nextDue);
    TickDueTimers();
    return true;
}

void Player::DoEvents()
{
    ++yields;
    ++now;
    if (timersChanged || now >= nextDue)
        TickDueTimers();
    PlayLines();
}

void Player::WaitEvents()
{
    const std::size_t before = next;
    DoEvents();
    idleWaits = next == before ? idleWaits + 1 : 0;
    if (!hasEnded && idleWaits > patience) {
        std::cerr << "the program waits for a deed that the script doesn't hold\n";
        Finish();
        std::_Exit(endScript);
    }
}

void Player::PlayLines()
{
    while (!hasEnded && next < script.size() && !IsHeldBack(script[next])) {
        // Past the line before it is done: its handler may yield, and the lines behind it are played there.
        const Deed deed = script[next++];
        Do(deed);
    }
}

bool Player::IsHeldBack(const Deed &theDeed)
{
    if (theDeed.Verb == "wait") {
        // Asked at every yield, so the screen is looked up once.
        if (!awaited || theDeed.Target != awaited->Name)
            awaited = FindForm(theDeed.Target);
        return !awaited || !awaited->Visible;
    }
    return theDeed.Verb == "at" && static_cast<double>(yields) < NumberAtStart(theDeed.Target);
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

int Player::MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    lastBox = thePrompt;
    const bool isQuestion = (theFlags & msgYesNo) != 0;
    if (!isQuestion) {
        if (++boxes[thePrompt] == 1)
            Say("box", "[" + theTitle + "] " + thePrompt);
        return answerOK;
    }
    bool isYes = false;
    if (!answers.empty()) {
        isYes = EqualsIgnoringCase(answers.front(), "Yes");
        answers.pop_front();
    }
    Say("asked", "[" + theTitle + "] " + thePrompt + " -> " + (isYes ? "Yes" : "No"));
    return isYes ? answerYes : answerNo;
}

Text Player::OpenFile(const Text &)
{
    Text Result;
    if (!files.empty()) {
        Result = files.front();
        files.pop_front();
    }
    Say("file", Result.empty() ? "(cancelled)" : Result);
    return Result;
}

void Player::Beep()
{
    Say("beep", "");
}

void Player::Navigate(Browser &theBrowser, const Text &theAddress)
{
    History &history = histories[&theBrowser];
    history.Pages.resize(history.Pages.empty() ? 0 : history.At + 1);
    history.Pages.push_back(theAddress);
    history.At = history.Pages.size() - 1;
    OpenPage(theBrowser, theAddress);
}

void Player::OpenPage(Browser &theBrowser, const Text &theAddress)
{
    theBrowser.NowAddress = theAddress;
    BrowserGoes(theBrowser, theAddress);
    if (Holds(theAddress, "://")) {
        Say("browser", theAddress + " (a web address, not opened)");
        return;
    }
    if (!HostFiles::IsFile(theAddress)) {
        Say("browser", theAddress + " (there is no such page)");
        return;
    }
    const Text title = TitleOfPage(HostFiles::Read(theAddress));
    Say("browser", theAddress + " \"" + title + "\"\n" + HostFiles::ToHost(theAddress));
    BrowserTitled(theBrowser, title);
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

bool Player::GoBack(Browser &theBrowser)
{
    History &history = histories[&theBrowser];
    if (history.At == 0)
        return false;
    OpenPage(theBrowser, history.Pages[--history.At]);
    return true;
}

bool Player::GoForward(Browser &theBrowser)
{
    History &history = histories[&theBrowser];
    if (history.At + 1 >= history.Pages.size())
        return false;
    OpenPage(theBrowser, history.Pages[++history.At]);
    return true;
}

void Player::Refresh(Browser &theBrowser)
{
    if (const History &history = histories[&theBrowser]; !history.Pages.empty())
        OpenPage(theBrowser, history.Pages[history.At]);
}

void Player::Standstill(const Text &theWhere, const Text &theWhy)
{
    Say("standstill", theWhere + ": " + theWhy);
}

void Player::Failure(const RuntimeFailure &theFailure)
{
    Say("failure", theFailure.What + " (" + theFailure.Where + ")");
}

void Player::Ended(int theCode)
{
    Say("ended", "");
    hasEnded = true;
    code = theCode;
}
