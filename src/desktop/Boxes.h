// Message boxes and the file dialog.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <QWidget>

namespace Boxes
{
// Shows a message box with the icon and the buttons of theFlags (see Services.h) and returns the answer. hasOptOut adds
// a check box with which the user can silence this message; wantsNoMore returns its state. theReason stands below
// thePrompt.
int Ask(QWidget *theParent, const Text &thePrompt, int theFlags, const Text &theTitle, bool hasOptOut,
    bool &wantsNoMore, const Text &theReason = "");
// thePrompt without numbers and without the names of files and links: equal for messages of the same kind.
Text WithoutNames(const Text &thePrompt);
// Asks for an existing file, first in theStart. theFilter looks like "Words (*.txt)|*.txt|(*.*)|*.*|". theStart and the
// result are paths of the host; the result is empty when the user cancels.
QString ChooseFile(QWidget *theParent, const Text &theFilter, const QString &theStart);
// Asks for a place to save a file, first at theStart, a path of the host with the name that is suggested. The result is
// empty when the user cancels.
QString ChooseFileToSave(QWidget *theParent, const QString &theTitle, const QString &theStart);
// Says that the program ends because of a failure that nothing handled.
void ShowFailure(QWidget *theParent, const RuntimeFailure &theFailure);
// Says why the program can never go on, and what the user can do.
void ShowStandstill(QWidget *theParent, const Text &theWhere, const Text &theWhy);
}  // namespace Boxes
