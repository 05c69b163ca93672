// The scripted presentation: plays a user without a display.
#pragma once
#include "player/PlayerBrowser.h"
#include "player/PlayerClock.h"
#include "toolkit/Presentation.h"
#include <deque>
#include <set>

class Player final : public Presentation
{
public:
    explicit Player(std::vector<Action> theScript) : script(std::move(theScript)) {}

    // Starts the program and plays until the script or the program ends. Returns the exit code.
    int Play(Form &theFirstForm);

    void Show(Form &theForm) override;
    void Unload(Form &theForm) override;
    void Changed(Element &theElement) override;
    void Focus(Control &) override {}
    void DoEvents() override;
    void WaitEvents() override;
    void PaintNow() override {}
    int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle) override;
    Text OpenFile(const Text &theFilter) override;
    void Beep() override;
    void Navigate(Browser &theBrowser, const Text &theAddress) override;
    bool GoBack(Browser &theBrowser) override;
    bool GoForward(Browser &theBrowser) override;
    void Refresh(Browser &theBrowser) override;
    void Stop(Browser &) override {}
    void Standstill(const Text &theWhere, const Text &theWhy) override;
    void Lost(const Losses::Loss &theLoss) override;
    void Failure(const RuntimeFailure &theFailure) override;
    void Ended(int theCode) override;

private:
    void PlayLines();
    bool IsHeldBack(const Action &theAction);
    Outcome Do(const Action &theAction);
    [[noreturn]] void StopAt(const Action &theAction, const Outcome &theOutcome);
    void PlayAll(Form &theFirstForm);
    void FailAsPlayer(const RuntimeFailure &theFailure);
    void Finish();

    const std::vector<Action> script;
    std::size_t next = 0;
    long yields = 0;
    long idleWaits = 0;             // successive waits during which no line was played
    const Form *awaited = nullptr;  // the screen that the current "wait" waits for
    PlayerClock clock;
    PlayerBrowser browser;
    std::deque<Text> answers, files;
    std::map<Text, long> boxes;  // how often each message was shown
    long lost = 0;               // failures that no box told
    Text lastBox;
    std::set<const Form *> shown;
    bool hasEnded = false;
    int code = 0;
};
