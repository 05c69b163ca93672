#include "engine/Tallies.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "engine/Filter.h"
#include "engine/frmProcess.h"

void AddToCount(Label &theLabel, double theNumber)
{
    theLabel.Caption = NumberText(NumberAtStart(theLabel.Caption) + theNumber);
}

void TallyMediaFile(const Text &theFile)
{
    auto &extensions = frmLists::lstMediaExtensions;
    for (int k = 0; k < extensions.ListCount(); ++k)
        if (EndsInRow(theFile, extensions.List(k))) {
            AddToCount(frmProcess::lblMediaFilesFound);
            // Deliberate: a second run in one process adds to the counts of the first.
            auto &counts = frmLists::lstMediaFilesCnt;
            counts.SetList(k, NumberText(NumberAtStart(counts.List(k)) + 1));
            return;
        }
}
