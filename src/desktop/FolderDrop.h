// Folders dropped on a screen that has a directory picker.
#pragma once
#include "toolkit/Pickers.h"
#include <QMimeData>

namespace FolderDrop
{
// The directory picker of the screen, which takes folders; null when there is none.
DirList *PickerOf(const Form &theForm);
// Whether theData holds a folder that the screen can take now.
bool CanTake(const Form &theForm, const QMimeData &theData);
// Makes the pickers of the screen go to the folder in theData. Returns false when there is nothing to take.
bool Take(const Form &theForm, const QMimeData &theData);
}  // namespace FolderDrop
