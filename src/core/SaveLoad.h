// The project's keyword list.
#pragma once

// Fills frmLists.lstKeywords with the rows of the current project's key file; says so when there is none.
void RefreshMasterKeywordList();
