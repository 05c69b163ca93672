// What the process and the application of the windows need before the first of them opens.
#pragma once

namespace Application
{
// Before the QApplication is made.
void PrepareProcess();
// After it is made: style, colours, letters, icon.
void ApplyStyle();
// Tells the user when the program's directory can't be written, since all projects go there. True when it can.
bool CanKeepProjects();
}  // namespace Application
