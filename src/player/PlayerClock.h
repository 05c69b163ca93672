// The player's clock: ticks the program's timers in simulated time, which runs as fast as the program.
#pragma once
#include "toolkit/Controls.h"
#include <map>
#include <utility>
#include <vector>

class PlayerClock
{
public:
    // The simulated time in milliseconds.
    std::int64_t Now() const { return now; }
    // A screen was loaded or closed: other timers may be running than before.
    void ScreensChanged() { timersChanged = true; }
    // A timer was set: its interval starts anew.
    void Restart(Timer &theTimer);
    // Lets one millisecond pass.
    void Advance();
    // Lets time pass until the next timer ticks. False when no timer is running.
    bool AdvanceToNextTimer();

private:
    void FindTimers();
    void TickDueTimers();

    std::int64_t now = 0;
    std::int64_t nextDue = 0;  // no timer is due before this time
    bool timersChanged = true;
    std::vector<std::pair<const Form *, Timer *>> timers;  // all that there are
    std::map<Timer *, std::int64_t> due;
};
