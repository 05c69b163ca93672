#include "player/Progress.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "engine/Filter.h"
#include "engine/frmProcess.h"
#include "player/Host.h"
#include "player/Numbers.h"
#include <iostream>

using std::chrono::milliseconds;

// The files in theDir and below that the filter lets through.
static std::int64_t CountPages(const Text &theDir)
{
    std::int64_t Result = 0;
    for (const Text &file : *Files::FilesIn(theDir))
        Result += PassesFilter(file) ? 1 : 0;
    // A copy, since reading a directory below may renew the list.
    const Files::Names names = Files::DirectoriesIn(theDir);
    for (const Text &name : *names)
        Result += CountPages(AddTrailingSlash(theDir) + name);
    return Result;
}

Progress::Progress(bool shallShow) : isWanted(shallShow), isTerminal(Host::IsTerminal()) {}

void Progress::Begin()
{
    hasBegun = true;
    start = nextLook = Clock::now();
}

double Progress::Seconds() const
{
    return hasBegun ? std::chrono::duration<double>(Clock::now() - start).count() : 0;
}

void Progress::Look()
{
    if (!hasBegun)
        return;
    const Clock::time_point now = Clock::now();
    if (now < nextLook)
        return;
    nextLook = now + milliseconds(isTerminal ? 100 : 10'000);
    // Not before the first yield of the run, since asking the filter loads the screen that holds its list.
    if (pagesFound == 0 && !isReporting)
        pagesFound = CountPages(Paths::Normalize(LocalSiteDir));
    Print(Line());
}

void Progress::BeginReport()
{
    isReporting = true;
    nextLook = {};
}

Text Progress::Line() const
{
    const auto count = [](const Label &theLabel) {
        return static_cast<std::int64_t>(NumberAtStart(theLabel.Now.Caption));
    };
    const std::int64_t links = count(frmProcess::lblLinksInternalCnt) + count(frmProcess::lblLinksExternalCnt) +
                               count(frmProcess::lblLinksBrokenCnt) + count(frmProcess::lblLinksMedia);
    const Text done = Grouped(FilesProcessedCnt) + " of " + Counted(pagesFound, "page");
    if (isReporting)
        return done + ", " + Counted(links, "link") + ", making the report";
    const double seconds = Seconds(), part = static_cast<double>(FilesProcessedCnt) / static_cast<double>(pagesFound);
    // Too early a guess would be a wild one.
    const Text left = seconds < 1 || part <= 0 ? Text() : ", " + Duration(seconds / part - seconds) + " left";
    return done + ", " + Counted(links, "link") + left;
}

void Progress::Print(const Text &theLine)
{
    if (!isWanted)
        return;
    if (!isTerminal) {
        std::cerr << theLine << '\n';
        return;
    }
    const Text line = theLine.substr(0, Host::Columns() - 1);
    // Blanks cover the rest of a longer line; a terminal needs nothing else than the return to the line's start.
    std::cerr << '\r' << line << Text(shownWidth > line.size() ? shownWidth - line.size() : 0, ' ') << std::flush;
    shownWidth = line.size();
}

void Progress::End()
{
    if (shownWidth > 0)
        std::cerr << '\n' << std::flush;
    shownWidth = 0;
}
