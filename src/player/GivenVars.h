// The program's global variables by their names, for the script's verb "given".
#pragma once
#include "base/Text.h"

// Sets a variable of AppVars; false when there is none of that name. For a flag, "True" and numbers other than 0 are
// true.
bool SetAppVar(const Text &theName, const Text &theValue);
