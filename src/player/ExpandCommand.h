// The command "expand": expands a site without hands.
#pragma once
#include "player/RunOptions.h"

// Returns the exit status. Throws an OptionError, with nothing done, when the command line is wrong.
int ExpandCommand(Arguments &theArguments);
