#include "toolkit/Services.h"
#include "disk/Files.h"
#include "disk/Losses.h"
#include "disk/PendingWrites.h"
#include "toolkit/Gates.h"
#include "toolkit/Presentation.h"
#include <chrono>

Text DefaultBoxTitle;
void (*OnTrapped)(const RuntimeFailure &, const char *) = nullptr;

static std::uint64_t countedClock = 0;
static bool isClockCounted = false;

int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    Losses::MarkTold(thePrompt);
    PendingWrites::Hurry();
    const int Result = ThePresentation().MsgBox(thePrompt, theFlags, theTitle.empty() ? DefaultBoxTitle : theTitle);
    ThrowPending();
    return Result;
}

Text OpenFile(const Text &theFilter)
{
    Text Result = ThePresentation().OpenFile(theFilter);
    ThrowPending();
    return Result;
}

void Beep()
{
    ThePresentation().Beep();
}

void TellLosses()
{
    if (Losses::HasNews())
        for (const Losses::Loss &loss : Losses::TakeNews())
            ThePresentation().Lost(loss);
}

void DoEvents()
{
    TellLosses();
    ThePresentation().DoEvents();
    ThrowPending();
}

void WaitEvents()
{
    TellLosses();
    PendingWrites::Hurry();
    ThePresentation().WaitEvents();
    ThrowPending();
}

void PaintNow()
{
    ThePresentation().PaintNow();
}

Text LoadPicture(const Text &thePath)
{
    if (!Files::IsFile(thePath))
        Fail("picture not found", thePath);
    return thePath;
}

std::uint64_t ClockTicks()
{
    if (isClockCounted)
        return countedClock++;
    return static_cast<std::uint64_t>(std::chrono::high_resolution_clock::now().time_since_epoch().count());
}

void SetClock(std::uint64_t theSeed)
{
    countedClock = theSeed;
    isClockCounted = true;
}

void ReportTrapped(const RuntimeFailure &theFailure, const char *theProcedure)
{
    if (OnTrapped)
        OnTrapped(theFailure, theProcedure);
}

void Standstill(const Text &theWhere, const Text &theWhy)
{
    ThePresentation().Standstill(theWhere, theWhy);
    throw ProgramEnd{endStandstill};
}
