// The presentation in windows.
#pragma once
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

    // Starts the program and serves the user until it has ended. Returns the exit code.
    int Run(Form &theFirstForm);
    // How long the user waits who wants to wait for a program that stands still.
    std::chrono::milliseconds AskAgainAfter{10000};
    // The window of a screen; null when it isn't showing.
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
    void Failure(const RuntimeFailure &theFailure) override;
    void Ended(int theCode) override;

private:
    using Clock = std::chrono::steady_clock;
    void Place(Window &theWindow);
    void UpdateTimer(Timer &theTimer);
    void ShowChanges();
    void ProcessEvents(QEventLoop::ProcessEventsFlags theFlags);
    QWidget *FrontWindow() const;

    std::map<const Form *, std::unique_ptr<Window>> windows;
    std::vector<Form *> order;  // of the showing screens, the foremost last
    std::map<const Timer *, std::unique_ptr<QTimer>> timers;
    std::unordered_set<Element *> changed;
    std::map<const Form *, Control *> focusWanted;
    std::map<const Browser *, Text> addressWanted;  // of browsers that have no window yet
    Clock::time_point nextYield;
    QTimer heartbeat;  // ends a wait for events
    bool isPaintingOnly = false;
    QPoint lastPlace;
    bool hasPlace = false;
    unsigned long run = 0;  // the action during which the boxes below were shown
    std::map<Text, int> boxesShown;
    QString lastDirectory;
    bool hasEnded = false;
    int code = 0;
};
