// The presentation that shows the program in windows.
#pragma once
#include "desktop/Dialogs.h"
#include "desktop/Notices.h"
#include "desktop/Placement.h"
#include "desktop/Window.h"
#include "toolkit/Presentation.h"
#include <QEventLoop>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <map>
#include <memory>
#include <unordered_set>

class Desktop final : public QObject, public Presentation
{
    Q_OBJECT
public:
    Desktop();
    ~Desktop() override;

    // Starts the program and runs until it has ended. Returns the exit code.
    int Run(Form &theFirstForm);
    // The window of a screen; null when it is not showing.
    Window *WindowOf(const Form &theForm) const;

    void Show(Form &theForm) override;
    void Unload(Form &theForm) override;
    void Changed(Element &theElement) override;
    void Focus(Control &theControl) override;
    void DoEvents() override;
    void WaitEvents() override;
    void PaintNow() override;
    int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle) override;
    Text OpenFile(const Text &theFilter) override;
    void Beep() override;
    void Navigate(Browser &theBrowser, const Text &theAddress) override;
    bool GoBack(Browser &theBrowser) override;
    bool GoForward(Browser &theBrowser) override;
    void Refresh(Browser &theBrowser) override;
    void Stop(Browser &theBrowser) override;
    void Standstill(const Text &theWhere, const Text &theWhy) override;
    void Lost(const Losses::Loss &theLoss) override;
    void Failure(const RuntimeFailure &theFailure) override;
    void Ended(int theCode) override;

private:
    using Clock = std::chrono::steady_clock;
    void UpdateTimer(Timer &theTimer);
    void HideCovered(const Form &theForm);
    void ShowUncovered();
    void ShowChanges();
    void ProcessEvents(QEventLoop::ProcessEventsFlags theFlags);
    QWidget *FrontWindow() const;

    Notices notices;  // outlives the windows, which show it
    std::map<const Form *, std::unique_ptr<Window>> windows;
    std::vector<Form *> order;  // the screens that are showing, the one in front last
    std::map<const Timer *, std::unique_ptr<QTimer>> timers;
    std::unordered_set<Element *> changed;
    std::map<const Form *, Control *> focusWanted;
    std::map<const Browser *, Text> addressWanted;  // for browsers that have no window yet
    Clock::time_point nextYield;
    QTimer heartbeat;  // wakes WaitEvents at regular intervals
    bool isPaintingOnly = false;
    Placement placement;
    Dialogs dialogs;
    const Form *covered = nullptr;  // the screen whose window HideCovered has hidden
    bool hasEnded = false;
    bool hasLostAtEnd = false;  // after the last screen could show it
    bool hasLastList = false;   // and its list is open; the process ends when it is closed
    int code = 0;
};
