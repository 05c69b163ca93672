#include "engine/RouteNav.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "engine/PageText.h"
#include "engine/frmProcess.h"
#include "engine/frmTheFile.h"
#include "toolkit/HostFiles.h"

using namespace frmProcess;

// Asks neither whether the run was cancelled nor optSubdirs: what exists is routed, all of it. Wanted.
void RouteNav()
{
    const std::int16_t fileCount = Count16(File1.ListCount());
    for (int i = 0; i < fileCount; ++i) {
        const Text file = File1.List(i);
        TreatThisFile = PassesFilter(file);
        if (TreatThisFile)
            RouteTheFile(AddTrailingSlash(File1.Path) + file);
        TreatThisFile = false;
        DoEvents();
    }
    const Text path = Dir1.Path;
    const std::int16_t dirCount = Count16(Dir1.ListCount());
    for (int m = 0; m < dirCount; ++m) {
        Dir1.Path = Dir1.List(m);
        RouteNav();
        Dir1.Path = path;
        DoEvents();
    }
    Dir1.Path = path;
}

void RouteTheFile(const Text &theFile)
{
    Trap([&] {
        DoEvents();
        if (!ifFileExists(theFile)) {
            LogMessageLines({"Something is screwy.  A file that was found during a directory sweep is not found now:  ",
                "RouteTheFile().frmProcess"});
            return;
        }
        frmTheFile::rtb2.Text = "";
        LoadFileIntoBox(theFile, frmTheFile::rtb2);
        const Text depthPrefix = StringMulti(GetDirLevel(theFile, 1), "../");
        frmTheFile::rtb2.Text = RelinkRoutedPage(frmTheFile::rtb2.Text, depthPrefix);
        // Written over in place rather than deleted first: a failure then costs no file.
        PrintToFile(theFile, frmTheFile::rtb2.Text);
    });
}
