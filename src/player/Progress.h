// Shows how far a run is, on standard error: on a terminal in one line that is rewritten, elsewhere in a line now and
// then.
#pragma once
#include "base/Text.h"
#include <chrono>

class Progress
{
public:
    explicit Progress(bool shallShow);
    // The run's screen is showing.
    void Begin();
    // Called at every yield of the program.
    void Look();
    // The walk is over, and the report is being made.
    void BeginReport();
    // Ends the line, so that something else can be printed.
    void End();

    // The pages that the run will treat; 0 before the first look.
    std::int64_t PagesFound() const { return pagesFound; }
    // The time since Begin, 0 before it.
    double Seconds() const;

private:
    using Clock = std::chrono::steady_clock;
    Text Line() const;
    void Print(const Text &theLine);

    const bool isWanted, isTerminal;
    bool hasBegun = false, isReporting = false;
    Clock::time_point start, nextLook;
    std::int64_t pagesFound = 0;
    std::size_t shownWidth = 0;  // of the line on the terminal
};
