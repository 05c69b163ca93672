// Prepares the process and the QApplication before the first window opens.
#pragma once

namespace Application
{
// Must be called before the QApplication is created.
void PrepareProcess();
// Sets style, colours, fonts and icon. Must be called after the QApplication is created.
void ApplyStyle();
// Whether the program's directory, where all projects are stored, is writable. If not, a box tells the user.
bool CanKeepProjects();
// Marks the program directory as used. Where another process uses it, the user is asked; false when the user quits.
bool MayWorkBesideOthers();
// Tells the user which shipped files that the program needs are missing.
void TellMissing();
}  // namespace Application
