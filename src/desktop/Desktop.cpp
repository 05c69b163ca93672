#include "desktop/Desktop.h"
#include "desktop/Actions.h"
#include "desktop/Addresses.h"
#include "desktop/Boxes.h"
#include "desktop/Keyboard.h"
#include "desktop/NoticeList.h"
#include "toolkit/Gates.h"
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QScopedValueRollback>
#include <QScreen>
#include <algorithm>

using namespace std::chrono_literals;

// The pause between the end of one round of event processing and the start of the next: short enough to answer a click
// within 50 ms, long enough that painting the counters hardly slows the run.
static constexpr auto yieldEvery = 33ms;
// The same while a mouse button is held: its release is the click.
static constexpr auto yieldEveryWhilePressed = 8ms;
// A screen reader sends about a hundred queries for a screen, one after the other, and each round answers only one.
static constexpr auto yieldEveryForReaders = 2ms;

Desktop::Desktop()
{
    heartbeat.setInterval(100);
    connect(&heartbeat, &QTimer::timeout, this, &Desktop::ShowUncovered);
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
    if (!hasEnded || hasLastList)
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
        connect(window.get(), &Window::Dragged, this, [this](QPoint theWay) { placement.Drag(theWay); });
        placement.Open(*window);
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
    HideCovered(theForm);
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

// While the report is being made, the window of the run would stick out behind that of theForm when its help box is
// open. For the program it stays as it is. The user gets it back when the report fails.
void Desktop::HideCovered(const Form &theForm)
{
    if (!theForm.CloseRefused)
        return;
    for (Form *form : order)
        if (form != &theForm && form->CloseRefused) {
            WindowOf(*form)->hide();
            covered = form;
        }
}

void Desktop::ShowUncovered()
{
    if (!covered || covered->CloseRefused)
        return;
    if (Window *window = WindowOf(*covered))
        window->show();
    covered = nullptr;
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
    const bool isPressed = QGuiApplication::mouseButtons() != Qt::NoButton;
    nextYield = Clock::now() + (QAccessible::isActive() ? yieldEveryForReaders
                                   : isPressed          ? yieldEveryWhilePressed
                                                        : yieldEvery);
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
    const int Result = dialogs.MsgBox(FrontWindow(), thePrompt, theFlags, theTitle);
    nextYield = {};
    return Result;
}

Text Desktop::OpenFile(const Text &theFilter)
{
    ShowChanges();
    return dialogs.OpenFile(FrontWindow(), theFilter);
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
    Boxes::ShowStandstill(FrontWindow(), theWhere, theWhy);
}

void Desktop::Lost(const Losses::Loss &theLoss)
{
    notices.Add(theLoss);
    hasLostAtEnd |= ProgramEnded();
    // Later, when the program has done what it was doing.
    if (Dialogs::IsByLink(theLoss) && !ProgramEnded())
        QMetaObject::invokeMethod(
            this, [this, theLoss] { dialogs.ExplainLink(FrontWindow(), theLoss); }, Qt::QueuedConnection);
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
    // No screen is left that could show the notice.
    if (hasLostAtEnd || (theCode == endFailure && !notices.IsEmpty())) {
        hasLastList = true;
        auto *list = new NoticeList(notices, nullptr);
        QObject::connect(list, &QObject::destroyed, qApp, [theCode] { QCoreApplication::exit(theCode); });
        list->show();
        return;
    }
    QCoreApplication::exit(theCode);
}
