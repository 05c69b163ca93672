// Lists the saved projects and loads one of them.
#pragma once
#include "toolkit/Controls.h"

namespace frmLoad
{
extern Form Me;

// Adds the projects, from 0001 to the last one before a store is missing, to the three lists of the screen. Leaves
// ProjectName and DomainName with the values of the last project.
void LoadProjectList();
// The saved name of project theNumber, or its saved domain if which is 1 or more. If there is none, tells the user and
// returns empty text.
Text getProjectName(const Text &theNumber, int which);
}  // namespace frmLoad
