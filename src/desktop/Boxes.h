// The boxes that stand before the program's windows.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <QWidget>

namespace Boxes
{
// A message box with the icon and the buttons of theFlags, see Services.h; returns the answer. hasOptOut adds a check
// box with which the user wants to see this box no more, told in wantsNoMore.
int Ask(
    QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle, bool hasOptOut, bool &wantsNoMore);
// Asks for an existing file; theFilter is "Words (*.txt)|*.txt|(*.*)|*.*|". Starts in theStart, a directory of the
// host. Returns the path of the host, empty when the user cancelled.
QString ChooseFile(QWidget *theParent, const Text &theFilter, const QString &theStart);
void ShowFailure(QWidget *theParent, const RuntimeFailure &theFailure);
// Tells of a loop that can never end. True when the user wants to wait all the same.
bool WantsToWait(QWidget *theParent, const Text &theWhere, const Text &theWhy);
}  // namespace Boxes
