#include "engine/RouteNav.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "engine/PageText.h"
#include "engine/frmProcess.h"
#include "engine/frmTheFile.h"
#include "toolkit/HostFiles.h"
#include <unordered_map>

using namespace frmProcess;

namespace
{
// All copies of one file at one depth come out alike. What was made of a file is kept for its next copies, as long as
// the pass lasts; when much is kept, it is begun anew.
class RoutedTexts
{
public:
    // Held by each turn of the pass; with the outermost one all is forgotten.
    struct Use {
        Use() { ++uses; }
        ~Use();
        Use(const Use &) = delete;
        Use &operator=(const Use &) = delete;
    };
    // The routed text of a source at the depth of depthPrefix; null where it isn't known.
    const Text *Find(const Text &theSource, const Text &depthPrefix) const
    {
        const auto found = texts.find(depthPrefix + theSource);
        return found == texts.end() ? nullptr : &found->second;
    }
    void Keep(const Text &theSource, const Text &depthPrefix, const Text &theText)
    {
        if (theText.size() > textAtMost)
            return;
        if (bytes + theText.size() > keptAtMost)
            Forget();
        bytes += theText.size();
        texts[depthPrefix + theSource] = theText;
    }
    void Forget()
    {
        texts.clear();
        bytes = 0;
    }

private:
    static constexpr std::size_t keptAtMost = 32 << 20, textAtMost = 1 << 20;
    static int uses;
    std::unordered_map<Text, Text> texts;
    std::size_t bytes = 0;
};
int RoutedTexts::uses = 0;
RoutedTexts routedTexts;

RoutedTexts::Use::~Use()
{
    if (--uses == 0)
        routedTexts.Forget();
}
}  // namespace

// Asks neither whether the run was cancelled nor optSubdirs: what exists is routed, all of it. Wanted.
void RouteNav()
{
    const RoutedTexts::Use use;
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
        const Text source = HostFiles::SourceOfCopy(theFile);
        if (const Text *known = routedTexts.Find(source, depthPrefix)) {
            PrintToFile(theFile, *known);
            return;
        }
        LoadFileIntoBox(theFile, frmTheFile::rtb2);
        frmTheFile::rtb2.Text = RelinkRoutedPage(frmTheFile::rtb2.Text, depthPrefix);
        if (!source.empty())
            routedTexts.Keep(source, depthPrefix, frmTheFile::rtb2.Text);
        // Written over in place rather than deleted first: a failure then costs no file.
        PrintToFile(theFile, frmTheFile::rtb2.Text);
    });
}
