// Loads the project's keyword list.
#pragma once

// Fills frmLists.lstKeywords with the rows of the current project's key file, or shows a message when there is none.
void RefreshMasterKeywordList();
