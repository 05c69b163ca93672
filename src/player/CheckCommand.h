// The command "check": tells what a run would do, and what would end it. Writes nothing.
#pragma once
#include "player/RunOptions.h"

// Returns the exit status. Throws an OptionError, with nothing done, when the command line is wrong.
int CheckCommand(Arguments &theArguments);
