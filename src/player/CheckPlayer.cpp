#include "player/CheckPlayer.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/Io.h"
#include "engine/SiteWalk.h"
#include "engine/URLHandle.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include "player/CheckReport.h"
#include "player/Explain.h"
#include "player/LeftOut.h"
#include "player/Numbers.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include <algorithm>
#include <utility>

static CheckPlayer *thePlayer = nullptr;
static constexpr int endInterrupted = 130;
static const char *const closedDirectory =
    "you may not write in this directory, so files of the new site are missing there";

CheckPlayer::CheckPlayer(std::vector<Action> theScript, std::unique_ptr<Rehearsal> theRehearsal,
    const RunOptions &theOptions, Findings theFindings)
    : Player(std::move(theScript)), rehearsal(std::move(theRehearsal)), options(theOptions),
      findings(std::move(theFindings)), progress(!theOptions.IsQuiet)
{
    thePlayer = this;
    OnFailedPage = [](const RuntimeFailure &theFailure) { thePlayer->EndPage(theFailure); };
}

void CheckPlayer::Add(Finding theFinding)
{
    theFinding.File = rehearsal->RealPath(theFinding.File);
    theFinding.What = rehearsal->WithRealPaths(theFinding.What);
    findings.Add(theFinding);
}

void CheckPlayer::Add(bool isError, const Text &theFile, const Text &theWhat)
{
    Add({isError, Files::ToHost(theFile), 0, theWhat});
}

void CheckPlayer::Show(Form &theForm)
{
    if (&theForm == &frmProcess::Me)
        progress.Begin();
    else if (&theForm == &frmGeneratingReport::Me)
        progress.BeginReport();
    else if (&theForm == &frmReport::Me)
        // The run's screen is closed next, and forgets its counts.
        summary.TakeCounts();
    isWalking = &theForm == &frmProcess::Me || (isWalking && &theForm != &frmGeneratingReport::Me);
    Player::Show(theForm);
}

// Directories are looked at when the walk comes to them, since it may come to one and yield nowhere in it.
void CheckPlayer::Changed(Element &theElement)
{
    Player::Changed(theElement);
    if (isWalking && &theElement == &frmProcess::Dir1)
        LookAtDirectory();
}

void CheckPlayer::DoEvents()
{
    if (Host::IsInterrupted())
        Leave(endInterrupted);
    progress.Look();
    LookAtLink();
    Player::DoEvents();
}

// The program reads each link once more for this; links of other schemes are left to the program.
void CheckPlayer::LookAtLink()
{
    const std::pair<long, std::int64_t> link(FilesProcessedCnt, LinkInHand);
    if (LinkInHand == 0 || link == lastLink)
        return;
    lastLink = link;
    Text value = GetLinkAtPos(LinkInHand);
    if (!value.starts_with("https://"))
        return;
    value.erase(0, 8);
    if (value.starts_with("www."))
        value.erase(0, 4);
    const Text domain = LowerText(DomainName);
    if (value.starts_with(domain) &&
        (value.size() == domain.size() || Contains("/\\:?#", Text(1, value[domain.size()]))))
        Add({false, Files::ToHost(frmProcess::lblCurrentFile.Now.Caption),
            LineAt(frmLists::RichTextBox2.Text, LinkInHand),
            "an https link to the site's own domain; the program knows only http, so this link is broken"});
}

void CheckPlayer::LookAtDirectory()
{
    const Text &directory = frmProcess::Dir1.NowPath;
    if (directory.empty() || directory == lastDirectory)
        return;
    lastDirectory = directory;
    const Text real = Io::RealPath(Files::ToHost(directory)) + '/';
    if (real == Io::RealPath(rehearsal->RealProgram()) + '/' || real.starts_with(rehearsal->RealProject() + '/'))
        Add(true, directory, "this leads to the program directory, where the run would come to its own new site");
    if (const auto [known, isNew] = seen.insert(directory); isNew)
        CheckNames(directory, findings);
}

void CheckPlayer::NoteUncopied(const FailedCopy &theCopy)
{
    const auto nameOf = [](const Text &thePath) { return thePath.substr(thePath.rfind('\\') + 1); };
    const Text target = rehearsal->RealPath(Files::ToHost(theCopy.Target));
    if (theCopy.Reason == NameTooLong()) {
        ++longNames;
        longestName = std::max(longestName, nameOf(theCopy.Target).size());
    } else if (const Text dir = rehearsal->ClosedDirectoryOf(target); !dir.empty())
        findings.Add({false, dir, 0, closedDirectory});
    else if (!Contains(nameOf(theCopy.Source), "."))
        Add(false, theCopy.Source, "this file can't be copied, since its name has no dot");
    else
        Add(false, theCopy.Source, "this file can't be copied" + (theCopy.Reason.empty() ? "" : ": " + theCopy.Reason));
}

int CheckPlayer::MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    if (const auto copy = ReadFailedCopy(thePrompt))
        NoteUncopied(*copy);
    return Player::MsgBox(thePrompt, theFlags, theTitle);
}

void CheckPlayer::Standstill(const Text &theWhere, const Text &theWhy)
{
    Add(ExplainStandstill(theWhere, theWhy));
    isStandstill = true;
    throw UntrappedFailure{{theWhy, theWhere}};
}

// A failure or a standstill in a page, with which a run would end.
void CheckPlayer::EndPage(const RuntimeFailure &theFailure)
{
    if (!std::exchange(isStandstill, false))
        Add(ExplainFailure(theFailure));
    LinkInHand = 0;
}

// A failure outside of any page.
void CheckPlayer::Failure(const RuntimeFailure &theFailure)
{
    LinkInHand = 0;
    Add(ExplainFailure(theFailure));
}

void CheckPlayer::Lost(const Losses::Loss &theLoss)
{
    const Text file = rehearsal->RealPath(Files::ToHost(theLoss.File));
    if (const Text dir = rehearsal->ClosedDirectoryOf(file); !dir.empty())
        findings.Add(
            {false, dir, 0, "you may not write in this directory, so files of the new site are missing there"});
    else
        Add(false, theLoss.File, theLoss.Reason);
}

void CheckPlayer::LookAtNewSite()
{
    for (const Text &directory : rehearsal->OverfullDirectories())
        findings.Add({true, directory, 0,
            "this directory of the new site would hold more than 32,767 files, and the run would make no report"});
    if (longNames > 0)
        findings.Add({false, options.UsesQuillmark ? options.Site : KeywordFile(options), 0,
            "the names of " + Counted(longNames, "new page") + " would be too long, up to " +
                Grouped(static_cast<std::int64_t>(longestName)) + " bytes where this disk allows " +
                Grouped(static_cast<std::int64_t>(Host::LongestName(rehearsal->RealProgram() + '/'))) +
                ", so these pages would not be made; fewer keywords in a name (--per-name) or shorter ones help"});
    summary.BytesWritten = rehearsal->ByteCount();
    if (rehearsal->Growth() > Io::FreeSpace(rehearsal->RealProgram() + '/'))
        findings.Add({true, rehearsal->RealProgram(), 0, "the new site does not fit on this disk"});
    if (!ifFileExists(InStoreDir("report.html")) && findings.Errors() == 0)
        Add({true, {}, 0, "the run would make no report: " + ExplainMissingReport(LastBox())});
}

int CheckPlayer::Finish(int theCode)
{
    progress.End();
    Player::Finish(theCode);
    OnFailedPage = nullptr;
    if (theCode == endInterrupted) {
        rehearsal = nullptr;
        return theCode;
    }
    if (frmProcess::Me.Loaded)
        summary.TakeCounts();
    summary.PagesFound = std::max(progress.PagesFound(), summary.PagesProcessed);
    LookAtNewSite();
    const CheckReport report{
        options, findings, summary, rehearsal.get(), Io::FreeSpace(rehearsal->RealProgram() + '/')};
    const int Result = report.Tell();
    rehearsal = nullptr;
    return Result;
}
