// Pauses a run and resumes it, from a thread of its own, and measures how long a press takes to be served.
#pragma once
#include "desktop/Window.h"
#include <QPointF>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <random>
#include <thread>
#include <vector>

class QWindow;

// A mouse that stands over one spot of a window and isn't moved by the program's thread.
class Mouse
{
public:
    virtual ~Mouse() = default;
    virtual void Press() = 0;
    virtual void Release() = 0;
    // The X server's own mouse where there is an X server, else one that puts its events where a platform of Qt does.
    static std::unique_ptr<Mouse> Over(const QWidget &theWidget);
};

class Presser : public QObject
{
public:
    // Begins to press, at times up to theSpan milliseconds apart.
    Presser(Window &theRunScreen, double theSpan);
    // What the program tells its front, on the program's thread.
    void HasChanged(const Element &theElement);
    void WalkEnds();
    // Prints a line a press: milliseconds from the letting go of the mouse's button, which is what makes it a click,
    // until the program's handler has answered, and until Resume is painted.
    void Tell();

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override;

private:
    using Clock = std::chrono::steady_clock;
    enum class State { Running, Clicked, Answered, Paused, Resuming, Over };
    struct Served {
        double Answered, Painted;
    };
    void Work(double theSpan);
    void Painted();
    double MillisecondsSinceClick() const;
    bool ClickFor(State theOnItsWay, State theGoal);

    const QWidget &resume;
    const std::unique_ptr<Mouse> mouse;
    std::mutex lock;
    std::condition_variable isOther;
    State state = State::Running;
    Clock::time_point clickedAt;
    double answered = 0;
    std::vector<Served> served;
    std::mt19937 draw{std::random_device{}()};
    std::thread thread;
};
