// What the lines of a script do to screens and controls, and what they check on the disk.
#pragma once
#include "player/Script.h"

// Does theAction to a screen or a control.
Outcome DoToElement(const Action &theAction, Element &theElement);
// "holds" and "lacks": whether a file of the program directory exists and contains a text.
Outcome CheckFile(const Action &theAction);
