// The program's version as users see it, such as "1.0.7B". The build sets it, from the project's version.
#pragma once

extern const char *const ProgramVersion;
