#include "player/Player.h"
#include "core/TextOps.h"
#include "disk/PendingWrites.h"
#include "player/ElementActions.h"
#include "player/GivenVars.h"
#include "player/Transcript.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <cstdlib>
#include <exception>
#include <iostream>

// How long to wait for a screen, in simulated milliseconds. What has not appeared after an hour never appears.
static constexpr long patience = 3'600'000;

int Player::Play(Form &theFirstForm)
{
    SetPresentation(this);
    // A gate lets nothing pass; what comes here is the player's own.
    try {
        PlayAll(theFirstForm);
    } catch (const RuntimeFailure &failure) {
        FailAsPlayer(failure);
    } catch (const std::exception &failure) {
        FailAsPlayer(FailureOf(failure));
    }
    const bool hasEndedEarly = hasEnded && code == 0 && next < script.size() && script[next].Verb != "ended";
    if (hasEndedEarly)
        Complain("line " + std::to_string(script[next].Line) + ": the program ended before this line");
    return Finish(hasEndedEarly ? endScript : code);
}

void Player::FailAsPlayer(const RuntimeFailure &theFailure)
{
    Losses::MarkTold(theFailure.Where);
    Failure(theFailure);
    code = endFailure;
}

void Player::PlayAll(Form &theFirstForm)
{
    StartProgram(theFirstForm);
    while (!hasEnded) {
        PlayLines();
        if (hasEnded || next == script.size())
            break;
        const std::int64_t start = clock.Now();
        while (!hasEnded && next < script.size() && IsHeldBack(script[next]))
            if (!clock.AdvanceToNextTimer() || clock.Now() - start > patience)
                StopAt(script[next], {endScript, "this never happens: the program is waiting for the user"});
    }
}

int Player::Finish(int theCode)
{
    files = {};
    if (!hasEnded) {
        PendingWrites::Flush();
        TellLosses();
    }
    for (const auto &[text, count] : boxes)
        if (count > 1)
            Say("boxes", "shown " + std::to_string(count) + " times: " + text.substr(0, text.find('\r')));
    if (lost > 0)
        Say("lost", std::to_string(lost) + (lost == 1 ? " failure in all" : " failures in all"));
    std::cout.flush();
    return theCode;
}

void Player::Complain(const Text &theWhy)
{
    std::cout.flush();
    std::cerr << theWhy << '\n';
}

void Player::Leave(int theCode)
{
    const int result = Finish(theCode);
    std::cout.flush();
    std::_Exit(result);
}

void Player::StopAt(const Action &theAction, const Outcome &theOutcome)
{
    Complain("line " + std::to_string(theAction.Line) + ": " + theAction.Verb + ' ' + theAction.All() + ": " +
             theOutcome.Why);
    Leave(theOutcome.Code);
}

void Player::PlayLines()
{
    while (!hasEnded && next < script.size() && !IsHeldBack(script[next])) {
        // Moves on before the action is done: its handler may yield, and then the following lines are played.
        const Action &action = script[next++];
        const Outcome outcome = Do(action);
        // After a failure in its handler no action can be done any more; the failure is what is told.
        if (outcome.Code != 0 && code == 0)
            StopAt(action, outcome);
    }
}

bool Player::IsHeldBack(const Action &theAction)
{
    if (theAction.Verb == "wait") {
        // This is asked at every yield, so the screen is looked up only once.
        if (!awaited || theAction.Target != awaited->Name)
            awaited = FindForm(theAction.Target);
        return !awaited || !awaited->Visible;
    }
    return theAction.Verb == "at" && static_cast<double>(yields) < NumberAtStart(theAction.Target);
}

static void TraceFailure(const RuntimeFailure &theFailure, const char *theProcedure)
{
    Say("trapped", theFailure.What + " (" + theFailure.Where + ") in " + theProcedure);
}

Outcome Player::Do(const Action &theAction)
{
    const Text &verb = theAction.Verb;
    files.Tidy();
    if (verb == "wait" || verb == "at")
        return {};
    if (verb == "given")
        return SetAppVar(theAction.Target, theAction.Rest) ? Outcome{}
                                                           : Outcome{endScript, "there is no such variable"};
    if (verb == "follow")
        return browser.Follow(theAction.All());
    if (verb == "said") {
        if (Contains(lastBox, theAction.All()))
            return {};
        return {endExpectation, lastBox.empty() ? "no box was shown" : "the last box said: " + lastBox};
    }
    if (verb == "ended")
        return {endExpectation, "the program is still running"};
    if (verb == "holds" || verb == "lacks")
        return CheckFile(theAction);
    if (verb == "answer")
        answers.push_back(theAction.Target);
    else if (verb == "file")
        files.Add(theAction.All());
    else if (verb == "textfile")
        return files.AddTextFile(theAction.All());
    else if (verb == "trace")
        OnTrapped = theAction.Target == "on" ? TraceFailure : nullptr;
    else if (Element *element = FindElement(theAction.Target); element && verb == "focused")
        return element == focused ? Outcome{} : Outcome{endExpectation, "the program gave it no focus"};
    else if (element)
        return DoToElement(theAction, *element);
    else
        return {endScript, "there is no " + theAction.Target};
    return {};
}

void Player::Show(Form &theForm)
{
    clock.ScreensChanged();
    shown.insert(&theForm);
    Say("screen", Text(theForm.Name) + " \"" + theForm.Now.Caption + "\"");
}

void Player::Unload(Form &theForm)
{
    clock.ScreensChanged();
    browser.Forget(theForm);
    if (shown.erase(&theForm))
        Say("closed", theForm.Name);
}

void Player::Changed(Element &theElement)
{
    if (auto *timer = dynamic_cast<Timer *>(&theElement))
        clock.Restart(*timer);
}

void Player::DoEvents()
{
    ++yields;
    clock.Advance();
    PlayLines();
}

void Player::WaitEvents()
{
    const std::size_t before = next;
    DoEvents();
    idleWaits = next == before ? idleWaits + 1 : 0;
    if (!hasEnded && idleWaits > patience) {
        Complain("the program is waiting for an action, but no line of the script can be played");
        Leave(endScript);
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
    const FileAnswers::Answer answer = files.Take();
    Say("file", answer.Shown.empty() ? "(cancelled)" : answer.Shown);
    return answer.Path;
}

void Player::Beep()
{
    Say("beep", "");
}

void Player::Navigate(Browser &theBrowser, const Text &theAddress)
{
    browser.Navigate(theBrowser, theAddress);
}

bool Player::GoBack(Browser &theBrowser)
{
    return browser.GoBack(theBrowser);
}

bool Player::GoForward(Browser &theBrowser)
{
    return browser.GoForward(theBrowser);
}

void Player::Refresh(Browser &theBrowser)
{
    browser.Refresh(theBrowser);
}

void Player::Standstill(const Text &theWhere, const Text &theWhy)
{
    Say("standstill", theWhere + ": " + theWhy);
}

void Player::Lost(const Losses::Loss &theLoss)
{
    ++lost;
    Say("lost", theLoss.File + ": " + theLoss.Reason);
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
