// What the program asks of its presentation.
//
// The program never names Presentation: it calls MsgBox, DoEvents, Me.Show(). A presentation never calls an event
// procedure: it calls the gates of Gates.h.
#pragma once
#include "disk/Losses.h"
#include "toolkit/Pickers.h"

struct Presentation {
    virtual ~Presentation() = default;
    // Called also for a screen that is showing already, to bring it to the front.
    virtual void Show(Form &theForm) = 0;
    // Called also for a screen that was never shown.
    virtual void Unload(Form &theForm) = 0;
    virtual void Changed(Element &theElement) = 0;
    virtual void Focus(Control &theControl) = 0;
    // Serves what the user did and the timers that are due, then comes back. The presentation decides how often it
    // really looks.
    virtual void DoEvents() = 0;
    // Serves events while the program only waits: may sleep until something happens.
    virtual void WaitEvents() = 0;
    // Paints what has changed; serves neither the user nor timers.
    virtual void PaintNow() = 0;
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
    // Tells the user of something that could not be read or written and that no message box has told. Must not
    // open a modal box.
    virtual void Lost(const Losses::Loss &theLoss) = 0;
    // Tells the user of a failure that no trap caught.
    virtual void Failure(const RuntimeFailure &theFailure) = 0;
    // The program has ended; no gate is called any more.
    virtual void Ended(int theCode) = 0;
};

// Sets the presentation. Before that, and with null, the program is shown nowhere.
void SetPresentation(Presentation *thePresentation);
Presentation &ThePresentation();
