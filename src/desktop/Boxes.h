// Message boxes and the file dialog.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <QWidget>

namespace Boxes
{
// Shows a message box with the icon and the buttons of theFlags (see Services.h) and returns the answer. hasOptOut adds
// a check box with which the user can silence this message; wantsNoMore returns its state.
int Ask(
    QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle, bool hasOptOut, bool &wantsNoMore);
// Asks for an existing file, first in theStart. theFilter looks like "Words (*.txt)|*.txt|(*.*)|*.*|". theStart and the
// result are paths of the host; the result is empty when the user cancels.
QString ChooseFile(QWidget *theParent, const Text &theFilter, const QString &theStart);
// Says that the program ends because of a failure that nothing handled.
void ShowFailure(QWidget *theParent, const RuntimeFailure &theFailure);
// Says that the program is not responding. Returns true when the user wants to wait, false to end the program.
bool WantsToWait(QWidget *theParent, const Text &theWhere, const Text &theWhy);
}  // namespace Boxes
