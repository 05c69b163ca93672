// The scripted presentation: plays a user without a display, with a clock of its own that runs as fast as the program.
#pragma once
#include "player/Script.h"
#include "toolkit/Presentation.h"
#include <deque>
#include <map>
#include <set>

// Exit codes beside those of Presentation.h.
inline constexpr int endExpectation = 1;
inline constexpr int endScript = 2;

class Player final : public Presentation
{
public:
    explicit Player(std::vector<Action> theScript) : script(std::move(theScript)) {}

    // Starts the program and plays the script to its end or the program's. Returns the exit code.
    int Play(Form &theFirstForm);

    // Prints a line: what it is about, and a text, of several lines maybe.
    static void Say(const Text &theWhat, const Text &theText);

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
    void Failure(const RuntimeFailure &theFailure) override;
    void Ended(int theCode) override;

private:
    struct History {
        std::vector<Text> Pages;
        std::size_t At = 0;
    };

    void PlayLines();
    bool IsHeldBack(const Action &theAction);
    void Do(const Action &theAction);
    void DoTo(const Action &theAction, Element &theElement);
    void Follow(const Action &theAction);
    void LookAtFile(const Action &theAction);
    void ShowAll(const Action &theAction);
    void NeedPossible(const Action &theAction, bool wasPossible);
    [[noreturn]] void StopAt(const Action &theAction, int theCode, const Text &theWhy);
    void FindTimers();
    void TickDueTimers();
    bool AdvanceToNextTimer();
    void OpenPage(Browser &theBrowser, const Text &theAddress);
    void Finish();

    std::vector<Action> script;
    std::size_t next = 0;
    long yields = 0;
    long idleWaits = 0;  // in a row, with no line played
    long now = 0;        // milliseconds of the player's clock
    long nextDue = 0;    // no timer is due before this
    bool timersChanged = true;
    std::map<Timer *, long> due;
    const Form *awaited = nullptr;  // the screen that the line in hand waits for
    std::deque<Text> answers, files;
    std::map<Text, long> boxes;
    Text lastBox;
    std::map<Browser *, History> histories;
    std::set<const Form *> shown;
    bool hasEnded = false;
    int code = 0;
};
