#include "engine/SiteWalk.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "disk/Files.h"
#include "engine/Filter.h"
#include "engine/Tallies.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include "toolkit/Services.h"

// Explains that the new site would be copied into itself, and what to do.
static Text Overlap(const Text &theDir, const Text &theProject)
{
    Text Result =
        "The directory of the new site, " + theProject + ", contains " + theDir + ", a directory of your site";
    if (Files::IsReallyInside(theProject, LocalSiteDir))
        Result = "The directory of your site, " + LocalSiteDir +
                 (Files::IsReallyInside(LocalSiteDir, theProject) ? ", is also" : ", contains") +
                 " the directory of the new site, " + theProject;
    return Result + ". Ferncastle cannot copy a site into itself. Everything that you have typed is kept: start "
                    "Ferncastle again, load this project, and choose a directory that holds only your site";
}

// A walk that reached its own new site would overwrite its source, or copy its own copies without end. The check comes
// before the walk begins, and again at each directory, because a link may lead into the project.
void RefuseOwnProject(const Text &theDir)
{
    const Text project = InProgramDir(ProjectNumber);
    if (ProjectNumber.empty())
        Fail("No project was chosen. Please create a project or load one", "Timer1");
    if (Files::IsReallyInside(theDir, project) || Files::IsReallyInside(project, LocalSiteDir))
        Fail(Overlap(theDir, project), theDir);
}

static void CopyUnchanged(const Text &theFile)
{
    const Text source = AddTrailingSlash(frmProcess::File1.Path) + theFile;
    // Deliberate: the result is ignored: a copy that failed does not end the walk.
    CopyFile(source, InProgramDir(ProjectNumber + "\\" + RightPart(source, Len(source) - Len(LocalSiteDir))));
}

static void TreatPage(const Text &theFile)
{
    if (!OnFailedPage) {
        do_the_file(theFile);
        return;
    }
    try {
        do_the_file(theFile);
    } catch (const RuntimeFailure &failure) {
        OnFailedPage(failure);
    } catch (const UntrappedFailure &failure) {
        OnFailedPage(failure.Failure);
    }
}

void SiteWalk()
{
    const std::int16_t fileCount = Count16(frmProcess::File1.ListCount());
    for (int i = 0; i < fileCount; ++i) {
        if (CancelRequested)
            break;
        const Text file = frmProcess::File1.List(i);
        frmProcess::lblCurrentFile.Caption = AddTrailingSlash(frmProcess::File1.Path) + file;
        TreatThisFile = PassesFilter(file);
        TallyMediaFile(file);
        if (TreatThisFile)
            TreatPage(file);
        else
            CopyUnchanged(file);
        TreatThisFile = false;
        DoEvents();
    }
    if (!frmProcess::Menu.optSubdirs.Checked)
        return;
    const Text path = frmProcess::Dir1.Path;
    const std::int16_t dirCount = Count16(frmProcess::Dir1.ListCount());
    for (int m = 0; m < dirCount; ++m) {
        if (CancelRequested)
            break;
        frmProcess::Dir1.Path = frmProcess::Dir1.List(m);
        RefuseOwnProject(frmProcess::Dir1.Path);
        SiteWalk();
        frmProcess::Dir1.Path = path;
        DoEvents();
    }
    frmProcess::Dir1.Path = path;
}
