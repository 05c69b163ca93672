#include "desktop/Actions.h"
#include "toolkit/Gates.h"
#include "toolkit/Pickers.h"
#ifdef FERNCASTLE_LOG_ACTIONS
#include <cstdio>
#endif

namespace Actions
{
#ifdef FERNCASTLE_LOG_ACTIONS
// The last line is held back, for two reasons: an answer that is given while the action runs must come before the
// action in the script, and keys typed one after the other make one line.
static Text held;
static const Form *lastScreen = nullptr;
static long yields = 0, yieldsWritten = 0;
static int processing = 0;

static void Write(const Text &theLine)
{
    if (!theLine.empty())
        std::puts(theLine.c_str());
    std::fflush(stdout);
}

static void Line(const Text &theVerb, const Element &theElement, const Text &theRest = "")
{
    Write(std::exchange(held, ""));
    if (lastScreen != &theElement.Owner)
        Write("wait " + Text(theElement.Owner.Name));
    lastScreen = &theElement.Owner;
    if (processing > 0 && yields != yieldsWritten)
        Write("at " + std::to_string(yields));
    yieldsWritten = yields;
    const bool isForm = &theElement.Owner == &theElement;
    held = theVerb + ' ' + theElement.Owner.Name + (isForm ? "" : Text(".") + theElement.Name) +
           (theRest.empty() ? "" : " " + theRest);
}

static void Typed(const TextBox &theBox, const Text &theOld, const Text &theNew)
{
    const Text start = Text("type ") + theBox.Owner.Name + "." + theBox.Name + " ";
    const bool isLonger = theNew.starts_with(theOld) && theNew != theOld;
    if (isLonger && held.starts_with(start)) {
        held += theNew.substr(theOld.size());
        return;
    }
    if (!isLonger && !theOld.empty())
        Line("key", theBox, "Clear");
    if (const Text more = isLonger ? theNew.substr(theOld.size()) : theNew; !more.empty())
        Line("type", theBox, more);
}

void Answered(bool isYes)
{
    Write(isYes ? "answer Yes" : "answer No");
}
void Chose(const Text &theFile)
{
    Write("file " + theFile);
}
void Yielded()
{
    ++yields;
}
void ProcessingEvents(bool isProcessing)
{
    processing += isProcessing ? 1 : -1;
}
void Ended()
{
    Write(std::exchange(held, ""));
}
#else
static void Line(const Text &, const Element &, const Text & = "") {}
static void Typed(const TextBox &, const Text &, const Text &) {}
void Answered(bool) {}
void Chose(const Text &) {}
void Yielded() {}
void ProcessingEvents(bool) {}
void Ended() {}
#endif

bool Click(Control &theControl)
{
    if (IsReachable(theControl))
        Line("click", theControl);
    return UserClick(theControl);
}

bool DoubleClick(ListBox &theList)
{
    if (IsReachable(theList))
        Line("doubleclick", theList);
    return UserDoubleClick(theList);
}

bool KeyPress(TextBox &theBox, int &theKey)
{
    if (IsReachable(theBox) && theKey == '\r')
        Line("key", theBox, "Enter");
    return UserKeyPress(theBox, theKey);
}

bool Edit(TextBox &theBox, const Text &theText)
{
    if (IsReachable(theBox))
        Typed(theBox, theBox.Now.Caption, theText);
    return UserEdit(theBox, theText);
}

bool Select(ListBox &theList, int theIndex)
{
    if (IsReachable(theList))
        Line("select", theList, std::to_string(theIndex));
    return UserSelect(theList, theIndex);
}

bool Highlight(DirList &theList, int theIndex)
{
    if (IsReachable(theList))
        Line("select", theList, std::to_string(theIndex));
    return UserHighlight(theList, theIndex);
}

bool Go(DirList &theList, const Text &thePath)
{
    if (IsReachable(theList))
        Line("go", theList, thePath);
    return UserGo(theList, thePath);
}

bool Pick(DriveList &theList, const Text &theDrive)
{
    if (IsReachable(theList))
        Line("go", theList, theDrive);
    return UserPick(theList, theDrive);
}

bool Tool(ToolBar &theBar, const Text &theKey)
{
    if (IsReachable(theBar))
        Line("click", theBar, theKey);
    return UserTool(theBar, theKey);
}

bool Close(Form &theForm)
{
    if (theForm.Visible && !theForm.CloseRefused)
        Line("close", theForm);
    return UserClose(theForm);
}
}  // namespace Actions
