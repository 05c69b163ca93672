// The gates, and the services that hand the program's wishes to the presentation.
#include "toolkit/HostFiles.h"
#include "toolkit/Presentation.h"
#include "toolkit/QuietPresentation.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <chrono>
#include <exception>

Text DefaultBoxTitle;
void (*WhenTrapped)(const RuntimeFailure &, const char *) = nullptr;

namespace
{
QuietPresentation nobody;
Presentation *front = &nobody;
int gatesOpen = 0;            // gates on the stack
unsigned long deedsDone = 0;  // gates opened with none on the stack
std::exception_ptr pending;   // what a gate kept from passing the seam
bool hasEnded = false;
bool hasStarted = false;
std::uint64_t countedClock = 0;
bool isClockCounted = false;

void ThrowPending()
{
    if (pending)
        std::rethrow_exception(std::exchange(pending, nullptr));
}

// Puts on the disk what is outstanding, and says what could not be.
void SettleAll()
{
    HostFiles::Settle();
    for (const Text &failure : HostFiles::TakeFailures())
        front->MsgBox(failure, msgOK, DefaultBoxTitle);
}

void EndThe(int theCode)
{
    hasEnded = true;
    SettleAll();
    front->Ended(theCode);
}

// What is left over when the outermost gate closes ends the program.
void Resolve()
{
    try {
        ThrowPending();
        SettleAll();
        // Nothing runs any more: with the last screen gone, so is the program.
        const auto forms = Form::All();
        if (!hasEnded && hasStarted &&
            std::none_of(forms.begin(), forms.end(), [](Form *form) { return form->Visible; }))
            EndThe(0);
    } catch (const ProgramEnd &end) {
        EndThe(end.Code);
    } catch (const UntrappedFailure &failure) {
        SettleAll();
        front->Failure(failure.Failure);
        EndThe(endFailure);
    }
}

template <class Deed> bool Gate(Deed &&theDeed)
{
    // While the program is on its way out, nothing more is done in it.
    if (hasEnded || pending)
        return false;
    if (gatesOpen++ == 0)
        ++deedsDone;
    try {
        theDeed();
    } catch (const RuntimeFailure &failure) {
        pending = std::make_exception_ptr(UntrappedFailure{failure});
    } catch (const UntrappedFailure &) {
        pending = std::current_exception();
    } catch (const ProgramEnd &) {
        pending = std::current_exception();
    }
    if (--gatesOpen == 0)
        Resolve();
    return true;
}

void Run(Handler theHandler)
{
    if (theHandler)
        theHandler();
}

}  // namespace

bool CanReach(const Control &theControl)
{
    if (!theControl.Owner.Visible || !theControl.Now.Visible || !theControl.Now.Enabled)
        return false;
    if (const auto *item = dynamic_cast<const MenuItem *>(&theControl))
        return !item->Menu || CanReach(*item->Menu);
    // What lies beyond the right edge is out of reach, as the help box is while it is in.
    return theControl.Now.At.Left < theControl.Owner.Now.Width;
}

void Present(Presentation *thePresentation)
{
    front = thePresentation ? thePresentation : &nobody;
}

Presentation &ThePresentation()
{
    return *front;
}

bool ProgramEnded()
{
    return hasEnded;
}

unsigned long DeedsDone()
{
    return deedsDone;
}

int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    const int Result = front->MsgBox(thePrompt, theFlags, theTitle.empty() ? DefaultBoxTitle : theTitle);
    ThrowPending();
    return Result;
}

Text OpenFile(const Text &theFilter)
{
    Text Result = front->OpenFile(theFilter);
    ThrowPending();
    return Result;
}

void Beep()
{
    front->Beep();
}

void DoEvents()
{
    front->DoEvents();
    ThrowPending();
}

void WaitEvents()
{
    // Thousands of copies may be outstanding: what has changed is seen, and the user is heard, before the disk has them
    // all.
    if (HostFiles::IsOutstanding())
        front->ShowNow();
    HostFiles::Settle(10);
    front->WaitEvents();
    ThrowPending();
}

void ShowNow()
{
    front->ShowNow();
}

Text LoadPicture(const Text &thePath)
{
    if (!HostFiles::IsFile(thePath))
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

void TrapCaught(const RuntimeFailure &theFailure, const char *theProcedure)
{
    if (WhenTrapped)
        WhenTrapped(theFailure, theProcedure);
}

void Standstill(const Text &theWhere, const Text &theWhy)
{
    HostFiles::Settle();
    front->Standstill(theWhere, theWhy);
    throw ProgramEnd{endStandstill};
}

bool StartProgram(Form &theFirstForm)
{
    hasStarted = true;
    return Gate([&] { theFirstForm.Show(); });
}

bool UserClick(Control &theControl)
{
    if (!CanReach(theControl))
        return false;
    return Gate([&] {
        if (auto *box = dynamic_cast<CheckBox *>(&theControl))
            box->Value = !box->Value;
        Run(theControl.Design.Click);
    });
}

bool UserDoubleClick(ListBox &theList)
{
    if (!CanReach(theList) || theList.NowIndex < 0)
        return false;
    return Gate([&] { Run(theList.Design.DblClick); });
}

bool UserKeyPress(TextBox &theBox, int &theKey)
{
    if (!CanReach(theBox))
        return false;
    return Gate([&] {
        if (theBox.Design.KeyPress)
            theBox.Design.KeyPress(theKey);
        // The handler may have closed the screen; Enter itself changes nothing in a box of one line.
        if (theKey == '\r' || !theBox.Owner.Loaded)
            theKey = 0;
    });
}

bool UserKey(TextBox &theBox, char theKey)
{
    int key = static_cast<unsigned char>(theKey);
    if (!UserKeyPress(theBox, key))
        return false;
    return key == 0 || UserEdit(theBox, theBox.Now.Caption + static_cast<char>(key));
}

bool UserEdit(TextBox &theBox, const Text &theText)
{
    if (!CanReach(theBox))
        return false;
    return Gate([&] { theBox.Now.Caption = theText; });
}

bool UserSelect(ListBox &theList, int theIndex)
{
    if (!CanReach(theList) || theIndex < 0 || theIndex >= static_cast<int>(theList.NowRows.size()))
        return false;
    return Gate([&] {
        theList.ListIndex = theIndex;
        Run(theList.Design.Click);
    });
}

bool UserHighlight(DirList &theList, int theIndex)
{
    if (!CanReach(theList) || theList.List(theIndex).empty())
        return false;
    return Gate([&] { theList.NowIndex = theIndex; });
}

bool UserGo(DirList &theList, const Text &thePath)
{
    if (!CanReach(theList) || !HostFiles::IsDirectory(thePath))
        return false;
    return Gate([&] { theList.Path = thePath; });
}

bool UserPick(DriveList &theList, const Text &theDrive)
{
    if (!CanReach(theList) || !HostFiles::DriveExists(theDrive))
        return false;
    return Gate([&] { theList.Drive = theDrive; });
}

bool UserTool(ToolBar &theBar, const Text &theKey)
{
    if (!CanReach(theBar))
        return false;
    return Gate([&] { theBar.ButtonClick(theKey); });
}

bool UserClose(Form &theForm)
{
    if (!theForm.Visible || theForm.CloseRefused)
        return false;
    return Gate([&] {
        bool Cancel = false;
        if (theForm.Design.QueryUnload)
            theForm.Design.QueryUnload(Cancel);
        if (!Cancel)
            theForm.Unload();
    });
}

bool UserResize(Form &theForm, double theWidth, double theHeight)
{
    if (!theForm.Visible)
        return false;
    return Gate([&] {
        theForm.Now.Width = theWidth;
        theForm.Now.Height = theHeight;
        Run(theForm.Design.Resize);
    });
}

bool TimerTick(Timer &theTimer)
{
    if (!theTimer.Owner.Loaded || !theTimer.Now.Enabled || theTimer.Running)
        return false;
    theTimer.Running = true;
    const bool Result = Gate([&] { Run(theTimer.Design.Tick); });
    theTimer.Running = false;
    return Result;
}

bool BrowserGoes(Browser &theBrowser, const Text &theAddress)
{
    return theBrowser.Owner.Loaded && Gate([&] {
        if (theBrowser.Events.BeforeNavigate)
            theBrowser.Events.BeforeNavigate(theAddress);
    });
}

bool BrowserSays(Browser &theBrowser, const Text &theStatus)
{
    return theBrowser.Owner.Loaded && Gate([&] {
        if (theBrowser.Events.StatusTextChange)
            theBrowser.Events.StatusTextChange(theStatus);
    });
}

bool BrowserTitled(Browser &theBrowser, const Text &theTitle)
{
    return theBrowser.Owner.Loaded && Gate([&] {
        if (theBrowser.Events.TitleChange)
            theBrowser.Events.TitleChange(theTitle);
    });
}
