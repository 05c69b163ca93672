// What the windows say beside the program's own texts. Nothing here blocks the user.
#pragma once
#include "toolkit/Pickers.h"
#include <QRect>
#include <QString>

namespace Hints
{
// Where the hint of a screen stands, in the screen's coordinates; empty for a screen that never has one.
QRect PlaceOn(const Form &theForm);
// What a user of the screen should know now; usually empty.
QString Of(const Form &theForm);
// The tip of a row: its whole text; for a project also its number, domain and folder.
QString TipOf(const ListBox &theList, int theRow);
// A few words about a directory, shown in its row; usually empty.
QString NoteOn(const Text &theDir);
// True for the directories that runs have made.
bool IsOfProject(const Text &theDir);
}  // namespace Hints
