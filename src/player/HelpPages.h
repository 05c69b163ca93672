// The pages that --help shows.
#pragma once
#include "base/Text.h"

extern const char *const helpOfPlay;
Text HelpOfExpand();
Text HelpOfCheck();
