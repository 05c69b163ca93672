#include "player/UnattendedPlayer.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "disk/Files.h"
#include "engine/frmProcess.h"
#include "player/Host.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include <algorithm>
#include <iostream>

UnattendedPlayer::UnattendedPlayer(std::vector<Action> theScript, const RunOptions &theOptions)
    : Player(std::move(theScript)), options(theOptions), progress(!theOptions.IsQuiet)
{
    summary.Outcome = "script";
}

void UnattendedPlayer::Show(Form &theForm)
{
    if (&theForm == &frmProcess::Me) {
        // The wizard has just written this file, and the run has written nothing yet.
        startTime = Host::ChangeTime(Files::ToHost(InStoreDir(ProjectNumber + ".key")));
        progress.Begin();
    } else if (&theForm == &frmGeneratingReport::Me)
        progress.BeginReport();
    else if (&theForm == &frmReport::Me) {
        summary.Outcome = "report";
        // The run's screen is closed next, and forgets its counts.
        summary.TakeCounts();
    }
    Player::Show(theForm);
}

void UnattendedPlayer::DoEvents()
{
    progress.Look();
    Player::DoEvents();
}

// Where the run ended, to be added to the reason.
static Text CurrentPage()
{
    const Text page = frmProcess::Me.Loaded ? Files::ToHost(frmProcess::lblCurrentFile.Now.Caption) : Text();
    return page.empty() ? page : Text(", at ") + page;
}

void UnattendedPlayer::EndBy(const Text &theOutcome, const Text &theReason)
{
    progress.End();
    summary.Outcome = theOutcome;
    summary.Reason = theReason;
    std::cerr << theOutcome << ": " << theReason << '\n';
}

void UnattendedPlayer::Standstill(const Text &, const Text &theWhy)
{
    EndBy("standstill", theWhy + CurrentPage());
}

void UnattendedPlayer::Failure(const RuntimeFailure &theFailure)
{
    EndBy("failure", theFailure.What + " (" + theFailure.Where + ")" + CurrentPage());
}

void UnattendedPlayer::Complain(const Text &theWhy)
{
    progress.End();
    summary.Reason = theWhy;
    Player::Complain(theWhy);
}

void UnattendedPlayer::Lost(const Losses::Loss &theLoss)
{
    summary.Lost.push_back(theLoss);
}

void UnattendedPlayer::TakeAll(int theCode)
{
    summary.Status = theCode;
    if (frmProcess::Me.Loaded)
        summary.TakeCounts();
    summary.PagesFound = std::max(progress.PagesFound(), summary.PagesProcessed);
    summary.Seconds = progress.Seconds();
    summary.TakeFiles();
    if (!summary.NewSite.empty() && summary.Seconds > 0)
        summary.BytesWritten = Host::BytesSince(summary.NewSite, startTime);
    summary.Boxes = Boxes();
    // How often each was met is known only now.
    for (Losses::Loss &loss : summary.Lost)
        for (const Losses::Loss &one : Losses::All())
            if (one.File == loss.File && one.Reason == loss.Reason)
                loss.Times = one.Times;
}

int UnattendedPlayer::Finish(int theCode)
{
    progress.End();
    const int Result = Player::Finish(theCode);
    TakeAll(Result);
    std::cerr << Complaints(summary);
    if (!options.IsQuiet)
        std::cout << summary.ForPeople();
    if (!options.Json.empty() && !Host::WriteFile(options.Json, summary.AsJson())) {
        std::cerr << "ferncastle-play: cannot write " << options.Json << '\n';
        return Result == 0 ? endFailure : Result;
    }
    return Result;
}
