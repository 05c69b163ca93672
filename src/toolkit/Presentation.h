// The seam between the program and who presents it.
//
// The program never names Presentation: it calls MsgBox, DoEvents, Me.Show(). A presentation never calls an event
// procedure: it calls the gates below. No exception passes the seam: a gate keeps it, and DoEvents or the box that was
// open throws it anew in the program once the presentation has returned; at the outermost gate it ends the program
// through Presentation::Ended.
#pragma once
#include "toolkit/Controls.h"

// What the program asks of a front.
struct Presentation {
    virtual ~Presentation() = default;
    // Also for a screen that is showing: it is to come before the others.
    virtual void Show(Form &theForm) = 0;
    // Also for a screen that was never shown.
    virtual void Unload(Form &theForm) = 0;
    virtual void Changed(Element &theElement) = 0;
    virtual void Focus(Control &theControl) = 0;
    // Serves what the user did and the timers that are due, then comes back. It decides itself how often to look.
    virtual void DoEvents() = 0;
    // Serves events where the program only waits: may sleep until something happens.
    virtual void WaitEvents() = 0;
    // Paints what has changed; serves neither the user nor timers.
    virtual void ShowNow() = 0;
    // theFlags as in Services.h; returns one of the answers there.
    virtual int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle) = 0;
    // Returns the full path of the chosen file, empty when the user cancelled.
    virtual Text OpenFile(const Text &theFilter) = 0;
    virtual void Beep() = 0;
    // False when there is no page to go back or forward to.
    virtual void Navigate(Browser &theBrowser, const Text &theAddress) = 0;
    virtual bool GoBack(Browser &theBrowser) = 0;
    virtual bool GoForward(Browser &theBrowser) = 0;
    virtual void Refresh(Browser &theBrowser) = 0;
    virtual void Stop(Browser &theBrowser) = 0;
    // Tells the user of a loop that can never end; returns when the program is to end.
    virtual void Standstill(const Text &theWhere, const Text &theWhy) = 0;
    // Tells the user of a failure that no trap caught.
    virtual void Failure(const RuntimeFailure &theFailure) = 0;
    // The program has ended; no gate is called any more.
    virtual void Ended(int theCode) = 0;
};

// Exit codes beside 0.
inline constexpr int endFailure = 3;
inline constexpr int endStandstill = 4;

// Sets the front; before that, and with null, one that shows nothing stands in.
void Present(Presentation *thePresentation);
Presentation &ThePresentation();

// The gates: what a user, a clock or a browser can do to the program. Each returns false, with nothing done, when it
// could not be done just now: the screen isn't showing, the control is hidden or disabled, the timer is off or its
// handler is still running, the frame may not be closed.
bool StartProgram(Form &theFirstForm);
// Whether a user could use the control now: it and its screen are showing, it is enabled, its menu can be reached.
bool CanReach(const Control &theControl);
bool UserClick(Control &theControl);
bool UserDoubleClick(ListBox &theList);
bool UserKey(TextBox &theBox, char theKey);  // a printing key at the end of the text, or Enter as '\r'
// Lets the box's handler see a key, Enter as '\r', before it takes effect; theKey is what the handler leaves of it.
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
// Counts what was done to the program; all that happens inside one deed, a whole run too, belongs to that deed.
unsigned long DeedsDone();
