#include "toolkit/Gates.h"
#include "disk/Files.h"
#include "disk/Losses.h"
#include "disk/PendingWrites.h"
#include "toolkit/Presentation.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <exception>
#include <new>
#include <utility>

namespace
{
int gatesOpen = 0;              // gates that are being executed
unsigned long actionsDone = 0;  // calls of a gate from outside the program's procedures
std::exception_ptr pending;     // what left an event procedure and has not been thrown again
bool hasEnded = false;
bool hasStarted = false;

// Writes what is pending and reports what was lost.
void FlushAll()
{
    PendingWrites::Flush();
    TellLosses();
}

void EndThe(int theCode)
{
    hasEnded = true;
    FlushAll();
    ThePresentation().Ended(theCode);
}

void EndByFailure(const RuntimeFailure &theFailure)
{
    Losses::MarkTold(theFailure.Where);
    FlushAll();
    ThePresentation().Failure(theFailure);
    EndThe(endFailure);
}

// Called when the outermost gate closes: an exception that nobody has caught ends the program.
void Resolve()
{
    try {
        ThrowPending();
        FlushAll();
        // No procedure is running. When no screen is showing either, the program ends.
        const auto forms = Form::All();
        if (!hasEnded && hasStarted &&
            std::none_of(forms.begin(), forms.end(), [](Form *form) { return form->Visible; }))
            EndThe(0);
    } catch (const ProgramEnd &end) {
        EndThe(end.Code);
    } catch (const UntrappedFailure &failure) {
        EndByFailure(failure.Failure);
    } catch (const std::exception &failure) {
        EndByFailure(FailureOf(failure));
    }
}

template <class Action> bool Gate(Action &&theAction)
{
    // Nothing more happens in a program that is ending.
    if (hasEnded || pending)
        return false;
    if (gatesOpen++ == 0)
        ++actionsDone;
    try {
        theAction();
    } catch (const RuntimeFailure &failure) {
        pending = std::make_exception_ptr(UntrappedFailure{failure});
    } catch (const UntrappedFailure &) {
        pending = std::current_exception();
    } catch (const ProgramEnd &) {
        pending = std::current_exception();
    } catch (const std::exception &failure) {
        pending = std::make_exception_ptr(UntrappedFailure{FailureOf(failure)});
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

RuntimeFailure FailureOf(const std::exception &theException)
{
    const bool isMemory = dynamic_cast<const std::bad_alloc *>(&theException) != nullptr;
    return {isMemory ? "not enough memory" : theException.what(), "the program"};
}

void EndByException(const std::exception &theException)
{
    if (!hasEnded)
        EndByFailure(FailureOf(theException));
}

void ThrowPending()
{
    if (pending)
        std::rethrow_exception(std::exchange(pending, nullptr));
}

bool IsReachable(const Control &theControl)
{
    if (!theControl.Owner.Visible || !theControl.Now.Visible || !theControl.Now.Enabled)
        return false;
    if (const auto *item = dynamic_cast<const MenuItem *>(&theControl))
        return !item->Menu || IsReachable(*item->Menu);
    // What lies beyond the right edge can't be reached; the help box lies there while it is closed.
    return theControl.Now.At.Left < theControl.Owner.Now.Width;
}

bool ProgramEnded()
{
    return hasEnded;
}

unsigned long ActionsDone()
{
    return actionsDone;
}

bool StartProgram(Form &theFirstForm)
{
    hasStarted = true;
    return Gate([&] { theFirstForm.Show(); });
}

bool UserClick(Control &theControl)
{
    if (!IsReachable(theControl))
        return false;
    return Gate([&] {
        if (auto *box = dynamic_cast<CheckBox *>(&theControl))
            box->Value = !box->Value;
        Run(theControl.Design.Click);
    });
}

bool UserDoubleClick(ListBox &theList)
{
    if (!IsReachable(theList) || theList.NowIndex < 0)
        return false;
    return Gate([&] { Run(theList.Design.DblClick); });
}

bool UserKeyPress(TextBox &theBox, int &theKey)
{
    if (!IsReachable(theBox))
        return false;
    return Gate([&] {
        if (theBox.Design.KeyPress)
            theBox.Design.KeyPress(theKey);
        // The handler may have closed the screen. Enter changes nothing in a box of one line.
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
    if (!IsReachable(theBox))
        return false;
    return Gate([&] { theBox.Now.Caption = theText; });
}

bool UserSelect(ListBox &theList, int theIndex)
{
    if (!IsReachable(theList) || theIndex < 0 || theIndex >= static_cast<int>(theList.NowRows.size()))
        return false;
    return Gate([&] {
        theList.ListIndex = theIndex;
        Run(theList.Design.Click);
    });
}

bool UserHighlight(DirList &theList, int theIndex)
{
    if (!IsReachable(theList) || theList.List(theIndex).empty())
        return false;
    return Gate([&] { theList.NowIndex = theIndex; });
}

bool UserGo(DirList &theList, const Text &thePath)
{
    if (!IsReachable(theList) || !Files::IsDirectory(thePath))
        return false;
    return Gate([&] { theList.Path = thePath; });
}

bool UserPick(DriveList &theList, const Text &theDrive)
{
    if (!IsReachable(theList) || !Files::DriveExists(theDrive))
        return false;
    return Gate([&] { theList.Drive = theDrive; });
}

bool UserTool(ToolBar &theBar, const Text &theKey)
{
    if (!IsReachable(theBar))
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
