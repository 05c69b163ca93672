// Passes the user's actions in the windows on to the gates. A build with FERNCASTLE_LOG_ACTIONS also writes them to
// standard output as a script of the player, so that a session in the windows can be played again.
#pragma once
#include "toolkit/Pickers.h"
#include "toolkit/Presentation.h"

namespace Actions
{
// Each calls the gate of that name; false when the action is not possible now.
bool Click(Control &theControl);
bool DoubleClick(ListBox &theList);
// Shows a key to the box's handler before it takes effect. The handler may change theKey; 0 means that it is dropped.
bool KeyPress(TextBox &theBox, int &theKey);
bool Edit(TextBox &theBox, const Text &theText);
bool Select(ListBox &theList, int theIndex);
bool Highlight(DirList &theList, int theIndex);
bool Go(DirList &theList, const Text &thePath);
bool Pick(DriveList &theList, const Text &theDrive);
bool Tool(ToolBar &theBar, const Text &theKey);
bool Close(Form &theForm);
// Only for the script: the answer to a question, the file chosen in a dialog, a yield of the program, whether events
// are being processed during a yield, and the end of the program.
void Answered(bool isYes);
void Chose(const Text &theFile);
void Yielded();
void ProcessingEvents(bool isProcessing);
void Ended();
}  // namespace Actions
