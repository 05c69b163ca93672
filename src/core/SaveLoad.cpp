#include "core/SaveLoad.h"
#include "core/FileHandle.h"
#include "core/Support.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"

void RefreshMasterKeywordList()
{
    Trap([] {
        const Text name = ProjectNumber + "_store\\" + ProjectNumber;
        const Text file = InProgramDir(name + ".key");
        if (!ifFileExists(file)) {
            ShowMessageLines({Text("There is no saved keyword list.  Report error at ") + SupportSite, "", file, "",
                "RefreshMasterKeywordList.SaveLoad"});
            return;
        }
        LoadListFromFile("key", name, frmLists::lstKeywords);
    });
}
