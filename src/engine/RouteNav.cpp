#include "engine/RouteNav.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "engine/PageText.h"
#include "engine/frmProcess.h"
#include "engine/frmTheFile.h"

using namespace frmProcess;

namespace
{
// Held by each turn of the pass. The outermost one ends it.
struct Turn {
    Turn() { ++turns; }
    ~Turn()
    {
        if (--turns == 0)
            Files::EndRewriting();
    }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;

    inline static int turns = 0;
};

// A routed page as it stands in its file, with the line end that every printed text gets.
Text RoutedFile(const Text &thePage, const Text &depthPrefix)
{
    return RelinkRoutedPage(thePage, depthPrefix) + CRLF;
}
}  // namespace

// Deliberate: asks neither whether the run was cancelled nor optSubdirs: what exists is routed, all of it.
void RouteNav()
{
    const Turn turn;
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
        const Text depthPrefix = StringMulti(GetDirLevel(theFile, 1), "../");
        // Written over in place rather than deleted first: a failure then costs no file.
        Files::Rewrite(theFile, RoutedFile, depthPrefix);
    });
}
