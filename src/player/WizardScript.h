// The script of the command "expand": the way through the wizard's screens from its start to the report.
#pragma once
#include "player/RunOptions.h"
#include "player/Script.h"

// The script for these options. Throws an OptionError when a value of theirs can't be written in a script.
Text WizardScript(const RunOptions &theOptions);
