#include "player/CheckPlayer.h"
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/Io.h"
#include "engine/SiteWalk.h"
#include "engine/URLHandle.h"
#include "engine/do_the_file.h"
#include "engine/frmProcess.h"
#include "player/CheckReport.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include <iostream>

static CheckPlayer *thePlayer = nullptr;
static constexpr int endInterrupted = 130;

CheckPlayer::CheckPlayer(std::vector<Action> theScript, std::unique_ptr<Rehearsal> theRehearsal,
    const RunOptions &theOptions, Findings theFindings)
    : Player(std::move(theScript)), rehearsal(std::move(theRehearsal)), options(theOptions),
      findings(std::move(theFindings)), progress(!theOptions.IsQuiet)
{
    thePlayer = this;
    OnFailedPage = [](const RuntimeFailure &theFailure) { thePlayer->EndPage(theFailure); };
}

void CheckPlayer::Add(bool isError, const Text &theFile, const Text &theWhat)
{
    findings.Add({isError, rehearsal->RealPath(Files::ToHost(theFile)), 0, theWhat});
}

void CheckPlayer::AddAtLink(bool isError, const Text &theWhat)
{
    findings.Add({isError, Files::ToHost(frmProcess::lblCurrentFile.Now.Caption),
        LineAt(frmLists::RichTextBox2.Text, LinkInHand), theWhat});
}

void CheckPlayer::Show(Form &theForm)
{
    if (&theForm == &frmProcess::Me)
        progress.Begin();
    else if (&theForm == &frmGeneratingReport::Me)
        progress.BeginReport();
    else if (&theForm == &frmReport::Me) {
        hasReport = true;
        // The run's screen is closed next, and forgets its counts.
        summary.TakeCounts();
    }
    Player::Show(theForm);
}

void CheckPlayer::DoEvents()
{
    if (Host::IsInterrupted())
        Leave(endInterrupted);
    progress.Look();
    LookAtDirectory();
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
        AddAtLink(false, "an https link to the site's own domain; the program knows only http");
}

void CheckPlayer::LookAtDirectory()
{
    const Text &directory = frmProcess::Dir1.NowPath;
    if (!frmProcess::Me.Visible || hasReport || directory == lastDirectory)
        return;
    lastDirectory = directory;
    const Text real = Io::RealPath(Files::ToHost(directory)) + '/';
    if (real == Io::RealPath(rehearsal->RealProgram()) + '/' || real.starts_with(rehearsal->RealProject() + '/'))
        Add(true, directory, "this leads to the program directory, where the run would come to its own new site");
}

int CheckPlayer::MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle)
{
    static const Text head = Text("Unable to copy file:") + CRLF, middle = Text(CRLF) + "to file:" + CRLF;
    if (thePrompt.starts_with(head)) {
        const Text file = thePrompt.substr(head.size(), thePrompt.find(middle) - head.size());
        const bool hasDot = Contains(file.substr(file.rfind('\\') + 1), ".");
        Add(false, file, hasDot ? "this file can't be copied" : "this file can't be copied, since its name has no dot");
    }
    return Player::MsgBox(thePrompt, theFlags, theTitle);
}

void CheckPlayer::Standstill(const Text &theWhere, const Text &theWhy)
{
    const bool isName = theWhere == "CreateNewlyKeywordedFile";
    AddAtLink(true, theWhere == "GetLinkAtPos" ? "the value of this link has no end"
                    : isName ? "no free name would be found for a new page; whether this happens depends on the seed"
                             : theWhy);
    isStandstill = true;
    throw UntrappedFailure{{theWhy, theWhere}};
}

// A failure or a standstill in a page, with which a run would end.
void CheckPlayer::EndPage(const RuntimeFailure &theFailure)
{
    const Text &page = frmLists::RichTextBox2.Text;
    if (isStandstill)
        isStandstill = false;
    else if (LinkInHand == 0)
        Add(true, frmProcess::lblCurrentFile.Now.Caption, theFailure.What);
    else if (FindLastText(page, "<", LinkInHand, false) == 0)
        AddAtLink(true, "a link ahead of the first tag");
    else if (FindText(LinkInHand, page, ">") == 0)
        AddAtLink(true, "the tag of this link has no end");
    else
        AddAtLink(true, theFailure.What == "negative count" ? "two good links in one tag" : theFailure.What);
    LinkInHand = 0;
}

// A failure outside of any page.
void CheckPlayer::Failure(const RuntimeFailure &theFailure)
{
    const bool isCount = theFailure.Where == "Count16";
    Add(true, frmProcess::Dir1.NowPath,
        isCount ? "this directory holds more than 32,767 files or directories" : theFailure.What);
}

void CheckPlayer::Lost(const Losses::Loss &theLoss)
{
    Add(false, theLoss.File, theLoss.Reason);
}

void CheckPlayer::LookAtNewSite()
{
    for (const Text &directory : rehearsal->OverfullDirectories())
        findings.Add({true, directory, 0,
            "this directory of the new site would hold more than 32,767 files, and the run would make no report"});
    summary.BytesWritten = rehearsal->ByteCount();
    if (summary.BytesWritten > Io::FreeSpace(rehearsal->RealProgram() + '/'))
        findings.Add({true, rehearsal->RealProgram(), 0, "the new site does not fit on this disk"});
    if (!hasReport && findings.Errors() == 0)
        findings.Add({true, options.Site, 0, "the run would make no report: " + reason});
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
        options, findings, summary, rehearsal->FileCount(), Io::FreeSpace(rehearsal->RealProgram() + '/')};
    const int Result = report.Tell();
    rehearsal = nullptr;
    return Result;
}
