// Pauses and resumes a run from another thread, and measures how long the program takes to respond to the clicks.
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

// A simulated mouse at a fixed place over a window. It does not use the program's thread.
class Mouse
{
public:
    virtual ~Mouse() = default;
    virtual void Press() = 0;
    virtual void Release() = 0;
    // Under an X server, the mouse of the server; otherwise one that puts events into Qt's window-system queue.
    static std::unique_ptr<Mouse> Over(const QWidget &theWidget);
};

class Presser : public QObject
{
public:
    // Starts to click, at random intervals of up to theSpan milliseconds.
    Presser(Window &theRunScreen, double theSpan);
    // To be called when the presentation is told of a change, and of the end of the walk, in the program's thread.
    void HasChanged(const Element &theElement);
    void WalkEnds();
    // Prints one line for each click: the milliseconds from the release of the mouse button until the program's handler
    // has responded, and until Resume is painted.
    void PrintResults();

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
