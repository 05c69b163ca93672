// Runs a site once, in the player or in the windows, to measure what the windows cost; bench/window calls it.
//
//   ferncastle-bench-window player|window PROGRAM-DIR SITE-DIR SCRIPT [SPAN]
//
// Plays SCRIPT up to the run and measures from the first tick of the run's timer until the program asks for its report
// to be shown. This includes the walk, the report pages, the route pass and all writing; in the windows also the
// painting and the opening of frmGeneratingReport. It does not include the start of Qt, the wizard, or the report's
// window and page. Then the process ends.
//
// With SPAN the program measures clicks instead: another thread pauses and resumes the run at random intervals of up to
// SPAN milliseconds.
#include "Presser.h"
#include "core/AppVars.h"
#include "core/frmSplash.h"
#include "desktop/Application.h"
#include "desktop/Desktop.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "engine/frmProcess.h"
#include "player/Player.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>

namespace
{
using Clock = std::chrono::steady_clock;

double MillisecondsSince(Clock::time_point theStart)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - theStart).count();
}

// The processor time of the calling thread, on which other processes have little influence.
double ThreadMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

[[noreturn]] void EndWith(int theCode)
{
    std::fflush(stdout);
    // Ends the process at once, wherever the program is.
    std::_Exit(theCode);
}

// Stands between the program and its presentation during the run. Its cost is the same for both presentations.
class Watch final : public QObject, public Presentation
{
public:
    // theDesktop is null in the player; theSpan is 0 to measure no clicks.
    Watch(Presentation &theFront, Desktop *theDesktop, double theSpan) : front(theFront)
    {
        if (!theDesktop)
            return;
        Window *window = theDesktop->WindowOf(frmProcess::Me);
        if (!window || !window->isVisible()) {
            std::fputs("the run screen isn't showing\n", stderr);
            EndWith(2);
        }
        window->installEventFilter(this);
        runScreen = window;
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake, this, [this] { NoteLook(); });
        if (theSpan > 0)
            presser = std::make_unique<Presser>(*window, theSpan);
    }

    void Show(Form &theForm) override
    {
        if (&theForm == &frmReport::Me)
            PrintResults();
        const auto began = Clock::now();
        front.Show(theForm);
        frontTime += MillisecondsSince(began);
    }
    void Changed(Element &theElement) override
    {
        if (walkTime == 0 && &theElement == walkEnd) {
            walkTime = MillisecondsSince(start);
            longestGapOfWalk = longestGap;
            if (presser)
                presser->WalkEnds();
        }
        if (presser)
            presser->HasChanged(theElement);
        front.Changed(theElement);
    }
    void DoEvents() override
    {
        ++yields;
        isYielding = true;
        front.DoEvents();
        isYielding = false;
        if (hasLooked) {
            ++looks;
            hasLooked = false;
            frontTime += MillisecondsSince(lookBegan);
            lastLook = Clock::now();
        }
    }
    // Answers boxes at once, in both presentations, because a box in the windows would wait for a user.
    int MsgBox(const Text &, int theFlags, const Text &) override { return theFlags & msgYesNo ? answerNo : answerOK; }
    void Unload(Form &theForm) override { front.Unload(theForm); }
    void Focus(Control &theControl) override { front.Focus(theControl); }
    void WaitEvents() override { front.WaitEvents(); }
    void PaintNow() override
    {
        const auto began = Clock::now();
        front.PaintNow();
        frontTime += MillisecondsSince(began);
    }
    Text OpenFile(const Text &theFilter) override { return front.OpenFile(theFilter); }
    void Beep() override { front.Beep(); }
    void Navigate(Browser &theBrowser, const Text &theAddress) override { front.Navigate(theBrowser, theAddress); }
    bool GoBack(Browser &theBrowser) override { return front.GoBack(theBrowser); }
    bool GoForward(Browser &theBrowser) override { return front.GoForward(theBrowser); }
    void Refresh(Browser &theBrowser) override { front.Refresh(theBrowser); }
    void Stop(Browser &theBrowser) override { front.Stop(theBrowser); }
    void Standstill(const Text &theWhere, const Text &theWhy) override { front.Standstill(theWhere, theWhy); }
    void Failure(const RuntimeFailure &theFailure) override
    {
        std::fprintf(stderr, "the run has failed: %s (%s)\n", theFailure.What.c_str(), theFailure.Where.c_str());
        EndWith(2);
    }
    void Lost(const Losses::Loss &theLoss) override { front.Lost(theLoss); }
    void Ended(int) override { EndWith(2); }

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override
    {
        if (theObject == runScreen && theEvent->type() == QEvent::Paint)
            ++paintings;
        return false;
    }

private:
    // A yield in which Qt processes events and paints what has changed.
    void NoteLook()
    {
        if (!isYielding || hasLooked)
            return;
        hasLooked = true;
        lookBegan = Clock::now();
        longestGap = std::max(longestGap, MillisecondsSince(lastLook));
    }

    void PrintResults()
    {
        const double time = MillisecondsSince(start);
        const double threadTime = ThreadMilliseconds() - threadStart;
        if (presser) {
            presser->PrintResults();
            EndWith(0);
        }
        if (runScreen && paintings == 0) {
            std::fputs("the run screen was never painted\n", stderr);
            EndWith(2);
        }
        std::printf("figures %.1f %.1f %ld %ld %ld %.1f %.1f %d %.1f %.1f\n", time, walkTime, yields, looks, paintings,
            longestGapOfWalk, longestGap, static_cast<int>(LinksInternalCnt), threadTime, frontTime);
        EndWith(0);
    }

    Presentation &front;
    const Element *const walkEnd = frmProcess::Me.Find("btnReport");  // shown once the walk is over
    QObject *runScreen = nullptr;
    std::unique_ptr<Presser> presser;
    long yields = 0, looks = 0, paintings = 0;
    bool isYielding = false, hasLooked = false;
    double walkTime = 0, longestGap = 0, longestGapOfWalk = 0;
    double frontTime = 0;  // spent in event processing, and in painting at once
    const Clock::time_point start = Clock::now();
    const double threadStart = ThreadMilliseconds();
    Clock::time_point lastLook = start, lookBegan = start;
};

Desktop *desktop = nullptr;
double span = 0;
Handler runTick = nullptr;
void (*whenRunBegins)() = nullptr;

// Replaces the procedure of the run's timer.
void WatchedTick()
{
    if (whenRunBegins)
        whenRunBegins();
    auto *watch = new Watch(ThePresentation(), desktop, span);
    SetPresentation(watch);
    runTick();
}

// A user who does in the windows what the script says, each line as soon as it is possible.
class User : public QTimer
{
public:
    explicit User(std::vector<Action> theScript) : script(std::move(theScript))
    {
        callOnTimeout([this] {
            if (next < script.size() && Do(script[next]))
                ++next;
        });
        start(10);
    }

private:
    static bool Do(const Action &theAction)
    {
        const Form *form = FindForm(theAction.Target);
        if (theAction.Verb == "wait")
            return form && form->Visible;
        Element *element = FindElement(theAction.Target);
        auto *control = dynamic_cast<Control *>(element);
        auto *box = dynamic_cast<TextBox *>(element);
        auto *dirs = dynamic_cast<DirList *>(element);
        if (theAction.Verb == "click" && control)
            return UserClick(*control);
        if (theAction.Verb == "type" && box)
            return UserEdit(*box, theAction.Rest);
        if (theAction.Verb == "key" && box)
            return UserKey(*box, '\r');
        if (theAction.Verb == "go" && dirs)
            return UserGo(*dirs, theAction.Rest);
        return false;
    }
    const std::vector<Action> script;
    std::size_t next = 0;
};
User *user = nullptr;

int RunInWindows(int &theCount, char **theWords, std::vector<Action> theScript)
{
    Application::PrepareProcess();
    QApplication application(theCount, theWords);
    Application::ApplyStyle();
    Desktop windows;
    desktop = &windows;
    user = new User(std::move(theScript));
    whenRunBegins = [] { user->stop(); };
    // In case the run never gets to its report.
    QTimer::singleShot(std::chrono::minutes(10), [] { EndWith(2); });
    return windows.Run(frmSplash::Me);
}
}  // namespace

int main(int argc, char **argv)
{
    const Text front = argc > 4 ? argv[1] : "";
    if (front != "player" && front != "window") {
        std::fputs("usage: ferncastle-bench-window player|window PROGRAM-DIR SITE-DIR SCRIPT [SPAN]\n", stderr);
        return 2;
    }
    Paths::SetProgramDir(argv[2]);
    Paths::MapDrive('s', argv[3]);
    std::ifstream file(argv[4]);
    if (argc > 5)
        span = std::strtod(argv[5], nullptr);
    // All runs of a site use the same random numbers.
    SetClock(1);
    auto *timer = frmProcess::Me.Find<Timer>("Timer1");
    runTick = timer->Design.Tick;
    timer->Design.Tick = timer->Now.Tick = WatchedTick;
    std::vector<Action> script = ReadScript(file);
    const int code = front == "player" ? Player(script).Play(frmSplash::Me) : RunInWindows(argc, argv, script);
    // A successful run has ended the process when it showed its report.
    std::cerr << "the script did not get to its report\n";
    return code == 0 ? 2 : code;
}
