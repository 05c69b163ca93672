// The gates: what a user, a clock or a browser can do to the program. A presentation calls nothing else.
//
// No exception passes from the program into a presentation. A gate keeps what leaves an event procedure; DoEvents, or
// the box that was open, throws it again in the program once the presentation has returned; the outermost gate ends the
// program through Presentation::Ended.
#pragma once
#include "base/Failure.h"
#include "toolkit/Pickers.h"
#include <exception>

// Exit codes beside 0.
inline constexpr int endFailure = 3;
inline constexpr int endStandstill = 4;

// Each gate returns false, with nothing done, when this could not be done just now: the screen isn't showing, the
// control is hidden or disabled, the timer is off or its handler is still running, the frame may not be closed.
bool StartProgram(Form &theFirstForm);
// Whether a user could use the control now: it and its screen are showing, it is enabled, its menu can be reached.
bool IsReachable(const Control &theControl);
bool UserClick(Control &theControl);
bool UserDoubleClick(ListBox &theList);
bool UserKey(TextBox &theBox, char theKey);  // a printing key at the end of the text, or Enter as '\r'
// Passes a key to the box's handler, Enter as '\r', before it takes effect. The handler may change theKey.
bool UserKeyPress(TextBox &theBox, int &theKey);
bool UserEdit(TextBox &theBox, const Text &theText);  // any other change of the text
bool UserSelect(ListBox &theList, int theIndex);
bool UserHighlight(DirList &theList, int theIndex);  // a single click on a row, see DirList::List
bool UserGo(DirList &theList, const Text &thePath);  // a double click, or a path dropped on it
bool UserPick(DriveList &theList, const Text &theDrive);
bool UserTool(ToolBar &theBar, const Text &theKey);
bool UserClose(Form &theForm);
bool UserResize(Form &theForm, double theWidth, double theHeight);
bool TimerTick(Timer &theTimer);
bool BrowserGoes(Browser &theBrowser, const Text &theAddress);
bool BrowserSays(Browser &theBrowser, const Text &theStatus);
bool BrowserTitled(Browser &theBrowser, const Text &theTitle);

// True once the program has ended; gates do nothing then.
bool ProgramEnded();
// Counts the user's actions. What happens during an action, a whole run for instance, doesn't count by itself.
unsigned long ActionsDone();

// Ends the program because of an exception that has happened outside the gates, in the presentation.
void EndByException(const std::exception &theException);
// What a user is told of an exception of the standard library, such as one for want of memory.
RuntimeFailure FailureOf(const std::exception &theException);

// For the services of the toolkit: throws what a gate has kept, if there is anything.
void ThrowPending();
