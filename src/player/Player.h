// The scripted presentation: plays a user without a display.
#pragma once
#include "player/FileAnswers.h"
#include "player/PlayerBrowser.h"
#include "player/PlayerClock.h"
#include "toolkit/Presentation.h"
#include <deque>
#include <set>

class Player : public Presentation
{
public:
    explicit Player(std::vector<Action> theScript) : script(std::move(theScript)) {}

    // Starts the program and plays until the script or the program ends. Returns the exit code.
    int Play(Form &theFirstForm);

    void Show(Form &theForm) override;
    void Unload(Form &theForm) override;
    void Changed(Element &theElement) override;
    void Focus(Control &theControl) override { focused = &theControl; }
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

protected:
    // Called once, when nothing more is played, whatever the reason. Takes and returns the exit code.
    virtual int Finish(int theCode);
    // Tells why the script can't be played to its end.
    virtual void Complain(const Text &theWhy);
    // Ends the process from within the program's procedures, which would otherwise go on.
    [[noreturn]] void Leave(int theCode);
    // How often each message was shown, and which was the last one, empty if there was none.
    const std::map<Text, long> &Boxes() const { return boxes; }
    const Text &LastBox() const { return lastBox; }

private:
    void PlayLines();
    bool IsHeldBack(const Action &theAction);
    Outcome Do(const Action &theAction);
    [[noreturn]] void StopAt(const Action &theAction, const Outcome &theOutcome);
    void PlayAll(Form &theFirstForm);
    void FailAsPlayer(const RuntimeFailure &theFailure);

    const std::vector<Action> script;
    std::size_t next = 0;
    std::int64_t yields = 0;
    long idleWaits = 0;                // successive waits during which no line was played
    const Form *awaited = nullptr;     // the screen that the current "wait" waits for
    const Element *focused = nullptr;  // the control to which the program gave the focus last
    PlayerClock clock;
    PlayerBrowser browser;
    std::deque<Text> answers;
    FileAnswers files;
    std::map<Text, long> boxes;
    long lost = 0;  // failures that no box told
    Text lastBox;
    std::set<const Form *> shown;
    bool hasEnded = false;
    int code = 0;
};
