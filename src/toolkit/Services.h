// What the program asks of its platform beside controls: message boxes, the yield, the clock, pictures.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <cstdint>

// Flags and answers of a message box; they add up.
inline constexpr int msgOK = 0;
inline constexpr int msgYesNo = 4;
inline constexpr int msgStop = 16;
inline constexpr int msgThirdDefault = 512;
inline constexpr int answerOK = 1;
inline constexpr int answerYes = 6;
inline constexpr int answerNo = 7;

// The title of message boxes that have none of their own.
extern Text DefaultBoxTitle;

// Shows a modal message box and waits for the answer; an empty title stands for DefaultBoxTitle.
int MsgBox(const Text &thePrompt, int theFlags = msgOK, const Text &theTitle = "");

// Asks for an existing file, see FileDialog; empty when the user cancelled.
Text OpenFile(const Text &theFilter);

void Beep();

// Lets the presentation serve events: clicks, keys, timers. Very cheap when there are none.
void DoEvents();

// The same for a loop that does nothing but wait: the presentation may let time pass.
void WaitEvents();

// Tells the presentation of the losses that nobody has been told of. The yields and the outermost gate do so.
void TellLosses();

// Paints what must be seen at once, such as a tick or a new screen. Serves no click, key or timer.
void PaintNow();

// The path of a picture that is there; a run-time failure when it isn't.
Text LoadPicture(const Text &thePath);

// Tells the user of a loop that can never end. theWhere names the procedure, theWhy is one sentence for a person.
// Doesn't return: the program ends when the user agrees, in the player at once.
[[noreturn]] void Standstill(const Text &theWhere, const Text &theWhy);

// The clock at its finest resolution, as a seed. SetClock replaces it by a counter that starts at theSeed, so that a
// run can be repeated.
std::uint64_t ClockTicks();
void SetClock(std::uint64_t theSeed);

// Calls OnTrapped, if it is set, for a failure that a trap caught in procedure theProcedure.
void ReportTrapped(const RuntimeFailure &theFailure, const char *theProcedure);
extern void (*OnTrapped)(const RuntimeFailure &theFailure, const char *theProcedure);
