#include "player/Player.h"
#include "core/TextOps.h"
#include "disk/Files.h"
#include "disk/PendingWrites.h"
#include "player/PageReader.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <limits>

namespace
{
constexpr long never = std::numeric_limits<long>::max();
constexpr long patience = 3'600'000;  // of the player's clock: a screen that isn't there within the hour never comes

}  // namespace

// Text of several lines, indented under its heading.
static Text Indented(const Text &theText)
{
    Text Result;
    for (const char c : theText)
        if (c != '\r')
            Result += c == '\n' ? Text("\n          ") : Text(1, c);
    return Result;
}

void Player::Say(const Text &theWhat, const Text &theText)
{
    std::cout << theWhat << Text(theWhat.size() < 10 ? 10 - theWhat.size() : 1, ' ') << Indented(theText) << '\n';
}

int Player::Play(Form &theFirstForm)
{
    SetPresentation(this);
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
        PendingWrites::Flush();
    for (const auto &[text, count] : boxes)
        if (count > 1)
            Say("boxes", "shown " + std::to_string(count) + " times: " + text.substr(0, text.find('\r')));
    std::cout.flush();
}

void Player::StopAt(const Action &theAction, int theCode, const Text &theWhy)
{
    std::cout.flush();
    std::cerr << "line " << theAction.Line << ": " << theAction.Verb << ' ' << theAction.All() << ": " << theWhy
              << '\n';
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
        std::cerr << "the program waits for a action that the script doesn't hold\n";
        Finish();
        std::_Exit(endScript);
    }
}

void Player::PlayLines()
{
    while (!hasEnded && next < script.size() && !IsHeldBack(script[next])) {
        // Past the line before it is done: its handler may yield, and the lines behind it are played there.
        const Action action = script[next++];
        Do(action);
    }
}

bool Player::IsHeldBack(const Action &theAction)
{
    if (theAction.Verb == "wait") {
        // Asked at every yield, so the screen is looked up once.
        if (!awaited || theAction.Target != awaited->Name)
            awaited = FindForm(theAction.Target);
        return !awaited || !awaited->Visible;
    }
    return theAction.Verb == "at" && static_cast<double>(yields) < NumberAtStart(theAction.Target);
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
    if (Contains(theAddress, "://")) {
        Say("browser", theAddress + " (a web address, not opened)");
        return;
    }
    if (!Files::IsFile(theAddress)) {
        Say("browser", theAddress + " (there is no such page)");
        return;
    }
    const Text title = TitleOfPage(Files::Read(theAddress));
    Say("browser", theAddress + " \"" + title + "\"\n" + Files::ToHost(theAddress));
    BrowserTitled(theBrowser, title);
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
