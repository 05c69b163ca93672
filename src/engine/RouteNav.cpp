#include "engine/RouteNav.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "engine/Filter.h"
#include "engine/Route.h"
#include "engine/frmProcess.h"

// Deliberate: neither CancelRequested nor optSubdirs is tested: whatever exists in the project directory is routed.
void RouteNav()
{
    const std::int16_t fileCount = Count16(frmProcess::File1.ListCount());
    for (int i = 0; i < fileCount; ++i) {
        const Text file = frmProcess::File1.List(i);
        TreatThisFile = PassesFilter(file);
        if (TreatThisFile)
            RouteTheFile(AddTrailingSlash(frmProcess::File1.Path) + file);
        TreatThisFile = false;
        DoEvents();
    }
    const Text path = frmProcess::Dir1.Path;
    const std::int16_t dirCount = Count16(frmProcess::Dir1.ListCount());
    for (int m = 0; m < dirCount; ++m) {
        frmProcess::Dir1.Path = frmProcess::Dir1.List(m);
        RouteNav();
        frmProcess::Dir1.Path = path;
        DoEvents();
    }
    frmProcess::Dir1.Path = path;
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
        // The file is overwritten rather than deleted and written again, so that a failure cannot lose it.
        Files::Rewrite(theFile, RouteOf(theFile));
    });
}
