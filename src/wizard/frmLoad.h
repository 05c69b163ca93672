// Lists the saved projects and takes one of them.
#pragma once
#include "toolkit/Controls.h"

namespace frmLoad
{
extern Form Me;

// Adds the projects from 0001 on up to the first whose store is missing to the three lists of the screen. ProjectName
// and DomainName are left with the values of the last one.
void LoadProjectList();
// The saved name of project theNumber, its saved domain when which is 1 or more. AccessibleName so and gives empty text
// where there is none.
Text getProjectName(const Text &theNumber, int which);
}  // namespace frmLoad
