#include "core/Version.h"

const char *const ProgramVersion = FERNCASTLE_VERSION;
