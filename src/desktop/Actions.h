// What the user does at the windows, on its way to the gates. A build with FERNCASTLE_LOG_ACTIONS also writes it to
// standard output in the player's language, so that what was done once at the windows can be played again.
#pragma once
#include "toolkit/Pickers.h"
#include "toolkit/Presentation.h"

namespace Actions
{
// Each as the gate of that name; false when it could not be done just now.
bool Click(Control &theControl);
bool DoubleClick(ListBox &theList);
// A key that the box's handler is to see before it takes effect; theKey is what the handler leaves of it, 0 nothing.
bool KeyPress(TextBox &theBox, int &theKey);
bool Edit(TextBox &theBox, const Text &theText);
bool Select(ListBox &theList, int theIndex);
bool Highlight(DirList &theList, int theIndex);
bool Go(DirList &theList, const Text &thePath);
bool Pick(DriveList &theList, const Text &theDrive);
bool Tool(ToolBar &theBar, const Text &theKey);
bool Close(Form &theForm);
// What a box was answered, a dialog gave; that the program yields, and whether what comes now is done during that; its
// end.
void Answered(bool isYes);
void Chose(const Text &theFile);
void Yielded();
void Serving(bool isServing);
void Ended();
}  // namespace Actions
