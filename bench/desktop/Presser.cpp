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

// A press that isn't answered by then has been lost.
static constexpr auto patience = 10s;

namespace
{
// Hands its events over as a platform of Qt does what comes in on a thread of its own: they go through the queue of the
// window system's events, and Qt finds the widget that lies there.
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
    // Comes back when the program has taken the event out of the queue.
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
// Has the X server do as if its mouse were pressed, by way of a connection of its own.
class ServerMouse final : public Mouse
{
public:
    explicit ServerMouse(const QWidget &theWidget) : server(xcb_connect(nullptr, nullptr))
    {
        const QPoint place = theWidget.mapToGlobal(theWidget.rect().center());
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
        xcb_test_fake_input(server, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root, static_cast<std::int16_t>(place.x()),
            static_cast<std::int16_t>(place.y()), 0);
        // A process that ended in mid-click has left it pressed.
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

// The two buttons lie on one spot, so that the mouse needn't move.
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

// Clicks and waits until the program has come to theGoal. False when the walk is over.
bool Presser::ClickFor(State theOnItsWay, State theGoal)
{
    // A finger takes its time, and so the letting go isn't bound to the moment at which the press was taken up.
    mouse->Press();
    Wait(5 + 25 * std::uniform_real_distribution<double>(0, 1)(draw));
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

// Short and long stretches of undisturbed run alike: the longer one, the more is outstanding when it is paused.
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

// The picture is on its way to the screen once the painting that it is part of is done.
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
    // A click that came too late for an answer; that it had to wait longer than it may counts all the same.
    if (const double waited = MillisecondsSinceClick(); state == State::Clicked && waited > 50)
        served.push_back({waited, waited});
    state = State::Over;
    isOther.notify_one();
}

// The thread may be waiting for the program to take an event up, so it is left alone: the process ends now.
void Presser::Tell()
{
    const std::lock_guard guard(lock);
    for (const Served &click : served)
        std::printf("click %.2f %.2f\n", click.Answered, click.Painted);
}
