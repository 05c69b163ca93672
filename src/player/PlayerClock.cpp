#include "player/PlayerClock.h"
#include "toolkit/Gates.h"
#include <algorithm>
#include <limits>

static constexpr std::int64_t never = std::numeric_limits<std::int64_t>::max();

void PlayerClock::Restart(Timer &theTimer)
{
    due.erase(&theTimer);
    timersChanged = true;
}

void PlayerClock::FindTimers()
{
    timersChanged = false;
    nextDue = never;
    if (timers.empty())
        for (const Form *form : Form::All())
            for (Element *element : form->Elements())
                if (auto *timer = dynamic_cast<Timer *>(element))
                    timers.emplace_back(form, timer);
    for (const auto &[form, timer] : timers) {
        if (!form->Loaded || !timer->Now.Enabled || timer->Now.Interval <= 0) {
            due.erase(timer);
            continue;
        }
        const std::int64_t when = due.try_emplace(timer, now + timer->Now.Interval).first->second;
        if (!timer->Running)
            nextDue = std::min(nextDue, when);
    }
}

void PlayerClock::TickDueTimers()
{
    if (timersChanged)
        FindTimers();
    if (now < nextDue)
        return;
    std::vector<Timer *> ticking;
    for (const auto &[timer, when] : due)
        if (when <= now && !timer->Running)
            ticking.push_back(timer);
    for (Timer *timer : ticking) {
        if (due.contains(timer))
            due[timer] = now + timer->Now.Interval;
        timersChanged = true;
        TimerTick(*timer);
        timersChanged = true;
    }
    FindTimers();
}

void PlayerClock::Advance()
{
    ++now;
    TickDueTimers();
}

bool PlayerClock::AdvanceToNextTimer()
{
    FindTimers();
    if (nextDue == never)
        return false;
    now = std::max(now, nextDue);
    TickDueTimers();
    return true;
}
