#include "Presser.h"
#include "engine/frmProcess.h"
#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QWindow>
#include <cmath>
#include <cstdio>
#ifdef FERNCASTLE_XTEST
#include <xcb/xtest.h>
#endif

using namespace std::chrono_literals;

// After this time without a response, a click counts as lost.
static constexpr auto patience = 10s;

namespace
{
// Puts its events into Qt's queue of window-system events, like a platform plugin that reads input in a thread of its
// own. Qt then finds the widget at that place.
class QueueMouse final : public Mouse
{
public:
    explicit QueueMouse(const QWidget &theWidget)
        : window(theWidget.window()->windowHandle()),
          spot(theWidget.mapTo(theWidget.window(), theWidget.rect().center())),
          place(theWidget.mapToGlobal(theWidget.rect().center()))
    {
    }
    void Press() override { Put(Qt::LeftButton, QEvent::MouseButtonPress); }
    void Release() override { Put(Qt::NoButton, QEvent::MouseButtonRelease); }

private:
    // Returns when the program has taken the event from the queue.
    void Put(Qt::MouseButtons theHeld, QEvent::Type theType) const
    {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(now).count() % 1'000'000'000;
        qt_handleMouseEvent(window, spot, place, theHeld, Qt::LeftButton, theType, {}, static_cast<int>(time));
    }
    QWindow *const window;
    const QPointF spot, place;
};

#ifdef FERNCASTLE_XTEST
// Makes the X server simulate mouse clicks, over a connection of its own.
class ServerMouse final : public Mouse
{
public:
    explicit ServerMouse(const QWidget &theWidget) : server(xcb_connect(nullptr, nullptr))
    {
        const QPoint place = theWidget.mapToGlobal(theWidget.rect().center());
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
        xcb_test_fake_input(server, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root, static_cast<std::int16_t>(place.x()),
            static_cast<std::int16_t>(place.y()), 0);
        // An earlier process may have ended with the button pressed.
        Put(XCB_BUTTON_RELEASE);
    }
    ~ServerMouse() override { xcb_disconnect(server); }
    void Press() override { Put(XCB_BUTTON_PRESS); }
    void Release() override { Put(XCB_BUTTON_RELEASE); }

private:
    void Put(std::uint8_t theEvent) const
    {
        xcb_test_fake_input(server, theEvent, XCB_BUTTON_INDEX_1, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        xcb_flush(server);
    }
    xcb_connection_t *const server;
};
#endif
}  // namespace

std::unique_ptr<Mouse> Mouse::Over(const QWidget &theWidget)
{
#ifdef FERNCASTLE_XTEST
    if (QGuiApplication::platformName() == QLatin1String("xcb"))
        return std::make_unique<ServerMouse>(theWidget);
#endif
    return std::make_unique<QueueMouse>(theWidget);
}

static QWidget &WidgetOf(const Window &theWindow, const char *theName)
{
    return *theWindow.WidgetOf(*theWindow.TheForm.Find(theName));
}

// Both buttons are in the same place, so the mouse need not move.
Presser::Presser(Window &theRunScreen, double theSpan)
    : resume(WidgetOf(theRunScreen, "btnResume")), mouse(Mouse::Over(WidgetOf(theRunScreen, "btnPause")))
{
    WidgetOf(theRunScreen, "btnResume").installEventFilter(this);
    thread = std::thread(&Presser::Work, this, theSpan);
}

double Presser::MillisecondsSinceClick() const
{
    return std::chrono::duration<double, std::milli>(Clock::now() - clickedAt).count();
}

static void Wait(double theMilliseconds)
{
    std::this_thread::sleep_for(std::chrono::duration<double, std::milli>(theMilliseconds));
}

// Clicks and waits until theGoal is reached. False when the walk is over.
bool Presser::ClickFor(State theOnItsWay, State theGoal)
{
    // Like a finger, waits before the release, so that the press has been processed by then.
    mouse->Press();
    Wait(50 + 25 * std::uniform_real_distribution<double>(0, 1)(draw));
    std::unique_lock guard(lock);
    if (state == State::Over)
        return false;
    state = theOnItsWay;
    clickedAt = Clock::now();
    guard.unlock();
    mouse->Release();
    guard.lock();
    if (!isOther.wait_for(guard, patience, [&] { return state == theGoal || state == State::Over; })) {
        std::fputs("a click was lost\n", stderr);
        std::_Exit(2);
    }
    return state == theGoal;
}

// Lets the run work undisturbed for short and for long periods: after a long one more writes are pending at the pause.
void Presser::Work(double theSpan)
{
    std::uniform_real_distribution<double> part(0, 1);
    double stretch = theSpan * part(draw);
    do {
        Wait(stretch);
        if (!ClickFor(State::Clicked, State::Paused))
            return;
        stretch = std::exp(std::log(theSpan) * part(draw));
    } while (ClickFor(State::Resuming, State::Running));
}

void Presser::HasChanged(const Element &theElement)
{
    if (&theElement.Owner != &frmProcess::Me)
        return;
    const auto hasCome = [&](const char *theName) {
        const auto *control = dynamic_cast<const Image *>(&theElement);
        return control && control->Now.Visible && Text(control->Name) == theName;
    };
    const std::lock_guard guard(lock);
    if (state == State::Clicked && hasCome("btnResume")) {
        answered = MillisecondsSinceClick();
        state = State::Answered;
    } else if (state == State::Resuming && hasCome("btnPause")) {
        state = State::Running;
        isOther.notify_one();
    }
}

// Notes the time only after the current paint event has finished.
bool Presser::eventFilter(QObject *theObject, QEvent *theEvent)
{
    if (theObject == &resume && theEvent->type() == QEvent::Paint)
        QMetaObject::invokeMethod(this, &Presser::Painted, Qt::QueuedConnection);
    return false;
}

void Presser::Painted()
{
    const std::lock_guard guard(lock);
    if (state != State::Answered)
        return;
    served.push_back({answered, MillisecondsSinceClick()});
    state = State::Paused;
    isOther.notify_one();
}

void Presser::WalkEnds()
{
    const std::lock_guard guard(lock);
    // The walk ended before the program responded to the click. A wait of more than 50 ms counts all the same.
    if (const double waited = MillisecondsSinceClick(); state == State::Clicked && waited > 50)
        served.push_back({waited, waited});
    state = State::Over;
    isOther.notify_one();
}

// Does not join the thread, which may be waiting for the program to process an event: the process ends now.
void Presser::PrintResults()
{
    const std::lock_guard guard(lock);
    for (const Served &click : served)
        std::printf("click %.2f %.2f\n", click.Answered, click.Painted);
}
