#include "desktop/Desktop.h"
#include "desktop/Actions.h"
#include "desktop/Addresses.h"
#include "desktop/Boxes.h"
#include "desktop/Keyboard.h"
#include "desktop/NoticeList.h"
#include "desktop/QtText.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

using namespace std::chrono_literals;

// The pause between the end of one round of event processing and the start of the next: short enough to answer a click
// at once, long enough that painting the counters hardly slows the run.
static constexpr auto yieldEvery = 16ms;
// A screen reader sends about a hundred queries for a screen, one after the other, and each round answers only one.
static constexpr auto yieldEveryForReaders = 2ms;
static constexpr int boxesBeforeOptOut = 2;

Desktop::Desktop()
{
    heartbeat.setInterval(100);
    heartbeat.start();
}

// Deletes the windows while the application still exists: a page view must not outlive it.
Desktop::~Desktop()
{
    SetPresentation(nullptr);
    windows.clear();
}

int Desktop::Run(Form &theFirstForm)
{
    SetPresentation(this);
    StartProgram(theFirstForm);
    if (!hasEnded)
        QApplication::exec();
    return code;
}

Window *Desktop::WindowOf(const Form &theForm) const
{
    const auto found = windows.find(&theForm);
    return found == windows.end() ? nullptr : found->second.get();
}

QWidget *Desktop::FrontWindow() const
{
    if (QWidget *active = QApplication::activeWindow()) {
        // The list of notices may close at any time; a message box must not have it as its parent.
        return qobject_cast<NoticeList *>(active) ? active->parentWidget() : active;
    }
    return order.empty() ? nullptr : WindowOf(*order.back());
}

// A screen opens where the previous one stands, so that the wizard looks like one window.
void Desktop::Place(Window &theWindow)
{
    const QRect screen = theWindow.screen()->availableGeometry();
    if (theWindow.TheForm.Design.Sizable) {
        // The size it gets when the user restores it from maximized.
        theWindow.resize(screen.size() * 4 / 5);
        theWindow.move(screen.center() - theWindow.rect().center());
        return;
    }
    if (!hasPlace || theWindow.windowFlags().testFlag(Qt::FramelessWindowHint)) {
        theWindow.move(screen.center() - theWindow.rect().center());
    } else {
        for (auto form = order.rbegin(); form != order.rend(); ++form)
            if (!(*form)->Design.Sizable) {
                lastPlace = WindowOf(**form)->pos();
                break;
            }
        theWindow.move(lastPlace);
    }
    lastPlace = theWindow.pos();
    theWindow.TheForm.Now.Left = lastPlace.x();
    hasPlace = hasPlace || !theWindow.windowFlags().testFlag(Qt::FramelessWindowHint);
}

void Desktop::Show(Form &theForm)
{
    std::unique_ptr<Window> &window = windows[&theForm];
    // A user who is working in another program is alerted, not interrupted.
    const bool isElsewhere = !order.empty() && QGuiApplication::applicationState() != Qt::ApplicationActive;
    const bool isNew = !window;
    if (isNew) {
        const QWidget *before = FrontWindow();
        window = std::make_unique<Window>(theForm, before ? before->screen() : nullptr, notices);
        connect(window.get(), &Window::HandlerRan, this, &Desktop::ShowChanges);
        Place(*window);
        // Before the window is shown, see Pages::Make.
        for (Element *element : theForm.Elements())
            if (auto *browser = dynamic_cast<Browser *>(element))
                window->PagesOf(*browser);
        window->setAttribute(Qt::WA_ShowWithoutActivating, isElsewhere);
    }
    std::erase(order, &theForm);
    order.push_back(&theForm);
    if (isNew && theForm.Design.Sizable)
        window->showMaximized();
    else
        window->show();
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    if (isElsewhere) {
        QApplication::alert(window.get());
    } else {
        window->raise();
        window->activateWindow();
    }
    if (isNew) {
        Keyboard::SetInitialFocus(*window, std::exchange(focusWanted[&theForm], nullptr));
        for (Element *element : theForm.Elements()) {
            if (auto *timer = dynamic_cast<Timer *>(element))
                UpdateTimer(*timer);
            if (auto *browser = dynamic_cast<Browser *>(element); browser && addressWanted.contains(browser))
                Navigate(*browser, addressWanted[browser]);
        }
    }
    nextYield = {};
}

void Desktop::Unload(Form &theForm)
{
    for (Element *element : theForm.Elements()) {
        changed.erase(element);
        if (auto *timer = dynamic_cast<Timer *>(element))
            if (const auto found = timers.find(timer); found != timers.end()) {
                found->second->stop();
                // Not deleted at once: its own handler may be running.
                found->second.release()->deleteLater();
                timers.erase(found);
            }
        if (auto *browser = dynamic_cast<Browser *>(element))
            addressWanted.erase(browser);
    }
    changed.erase(&theForm);
    focusWanted.erase(&theForm);
    std::erase(order, &theForm);
    if (const auto found = windows.find(&theForm); found != windows.end()) {
        if (!theForm.Design.Sizable && hasPlace)
            lastPlace = found->second->pos();
        // A message box may still be open in an outer event loop; it must not be deleted with its parent.
        for (auto *box : found->second->findChildren<QDialog *>(Qt::FindDirectChildrenOnly))
            box->setParent(nullptr, box->windowFlags());
        found->second->hide();
        // Not deleted at once: one of its own widgets may be handling the click that closes it.
        found->second.release()->deleteLater();
        windows.erase(found);
    }
}

void Desktop::Changed(Element &theElement)
{
    if (auto *timer = dynamic_cast<Timer *>(&theElement)) {
        UpdateTimer(*timer);
        return;
    }
    Window *window = WindowOf(theElement.Owner);
    if (!window)
        return;
    if (&theElement == &theElement.Owner)
        window->ApplySize();
    if (changed.empty())
        QMetaObject::invokeMethod(this, &Desktop::ShowChanges, Qt::QueuedConnection);
    changed.insert(&theElement);
}

void Desktop::ShowChanges()
{
    // A loop over a copy: an update may mark further elements as changed.
    for (Element *element : std::exchange(changed, {}))
        if (Window *window = WindowOf(element->Owner))
            window->Update(*element);
}

void Desktop::Focus(Control &theControl)
{
    if (Window *window = WindowOf(theControl.Owner)) {
        ShowChanges();
        Keyboard::SetInitialFocus(*window, &theControl);
    } else {
        focusWanted[&theControl.Owner] = &theControl;
    }
}

void Desktop::UpdateTimer(Timer &theTimer)
{
    if (!theTimer.Owner.Loaded || !theTimer.Now.Enabled || theTimer.Now.Interval <= 0) {
        if (const auto found = timers.find(&theTimer); found != timers.end())
            found->second->stop();
        return;
    }
    auto &timer = timers[&theTimer];
    if (!timer) {
        timer = std::make_unique<QTimer>();
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer.get(), &QTimer::timeout, this, [this, &theTimer] {
            if (!isPaintingOnly)
                TimerTick(theTimer);
        });
    }
    timer->start(theTimer.Now.Interval);
}

void Desktop::ProcessEvents(QEventLoop::ProcessEventsFlags theFlags)
{
    ShowChanges();
    Actions::ProcessingEvents(true);
    QCoreApplication::processEvents(theFlags);
    Actions::ProcessingEvents(false);
    nextYield = Clock::now() + (QAccessible::isActive() ? yieldEveryForReaders : yieldEvery);
}

void Desktop::DoEvents()
{
    Actions::Yielded();
    if (Clock::now() >= nextYield)
        ProcessEvents(QEventLoop::AllEvents);
}

void Desktop::WaitEvents()
{
    Actions::Yielded();
    ProcessEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

void Desktop::PaintNow()
{
    std::unordered_set<const Form *> stale;
    for (const Element *element : changed)
        stale.insert(&element->Owner);
    const QScopedValueRollback<bool> paintingOnly(isPaintingOnly, true);
    ProcessEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::ExcludeSocketNotifiers);
    // Qt would otherwise put off the painting.
    for (const Form *form : stale)
        if (Window *window = WindowOf(*form))
            window->repaint();
}

int Desktop::MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    ShowChanges();
    if (action != ActionsDone())
        boxesShown.clear();
    action = ActionsDone();
    // During one action, a run over a large site for instance, the same message may come a thousand times for different
    // files. Messages with the same first line count as the same.
    const Text box = theTitle + "\n" + thePrompt.substr(0, thePrompt.find('\r'));
    const int times = boxesShown[box];
    if (times < 0 && !(theFlags & msgYesNo))
        return answerOK;
    // A run whose box is hidden behind other windows would wait forever.
    if (QWidget *window = FrontWindow(); window && QGuiApplication::applicationState() != Qt::ApplicationActive)
        QApplication::alert(window);
    bool wantsNoMore = false;
    const int Result =
        Boxes::Ask(FrontWindow(), thePrompt, theFlags, theTitle, times >= boxesBeforeOptOut, wantsNoMore);
    if (theFlags & msgYesNo)
        Actions::Answered(Result == answerYes);
    else
        boxesShown[box] = wantsNoMore ? -1 : times + 1;
    nextYield = {};
    return Result;
}

Text Desktop::OpenFile(const Text &theFilter)
{
    ShowChanges();
    if (lastDirectory.isEmpty())
        lastDirectory = ToQString(Files::ToHost(Paths::ProgramDir()));
    const QString file = Boxes::ChooseFile(FrontWindow(), theFilter, lastDirectory);
    if (!file.isEmpty())
        lastDirectory = QFileInfo(file).path();
    const Text Result = file.isEmpty() ? Text() : Paths::FromHost(FromQString(file));
    Actions::Chose(Result);
    return Result;
}

void Desktop::Beep()
{
    QApplication::beep();
}

void Desktop::Navigate(Browser &theBrowser, const Text &theAddress)
{
    if (Window *window = WindowOf(theBrowser.Owner))
        window->PagesOf(theBrowser).Open(UrlOf(theAddress));
    else
        addressWanted[&theBrowser] = theAddress;
}

bool Desktop::GoBack(Browser &theBrowser)
{
    Window *window = WindowOf(theBrowser.Owner);
    return window && window->PagesOf(theBrowser).Back();
}

bool Desktop::GoForward(Browser &theBrowser)
{
    Window *window = WindowOf(theBrowser.Owner);
    return window && window->PagesOf(theBrowser).Forward();
}

void Desktop::Refresh(Browser &theBrowser)
{
    if (Window *window = WindowOf(theBrowser.Owner))
        window->PagesOf(theBrowser).Reload();
}

void Desktop::Stop(Browser &theBrowser)
{
    if (Window *window = WindowOf(theBrowser.Owner))
        window->PagesOf(theBrowser).Stop();
}

void Desktop::Standstill(const Text &theWhere, const Text &theWhy)
{
    ShowChanges();
    while (Boxes::WantsToWait(FrontWindow(), theWhere, theWhy)) {
        // Paints the windows but takes no input, because the program cannot respond.
        const QScopedValueRollback<bool> paintingOnly(isPaintingOnly, true);
        for (const auto until = Clock::now() + AskAgainAfter; Clock::now() < until;)
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}

void Desktop::Lost(const Losses::Loss &theLoss)
{
    notices.Add(theLoss);
}

void Desktop::Failure(const RuntimeFailure &theFailure)
{
    ShowChanges();
    Boxes::ShowFailure(FrontWindow(), theFailure);
}

void Desktop::Ended(int theCode)
{
    Actions::Ended();
    hasEnded = true;
    code = theCode;
    for (auto &[timer, clock] : timers) {
        clock->stop();
        clock.release()->deleteLater();
    }
    timers.clear();
    for (const auto &[form, window] : windows)
        window->hide();
    QCoreApplication::exit(theCode);
}
