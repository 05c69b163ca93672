#include "player/UnattendedPlayer.h"
#include "base/Failure.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "disk/Files.h"
#include "engine/frmProcess.h"
#include "player/Explain.h"
#include "player/Host.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include "toolkit/Gates.h"
#include <algorithm>
#include <iostream>

UnattendedPlayer::UnattendedPlayer(std::vector<Action> theScript, const RunOptions &theOptions)
    : Player(std::move(theScript)), options(theOptions), progress(!theOptions.IsQuiet)
{
    summary.Outcome = "failure";
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

void UnattendedPlayer::EndBy(const Text &theOutcome, const Finding &theReason)
{
    summary.Outcome = theOutcome;
    summary.Reason = theReason.Place();
}

void UnattendedPlayer::Standstill(const Text &theWhere, const Text &theWhy)
{
    EndBy("standstill", ExplainStandstill(theWhere, theWhy));
}

void UnattendedPlayer::Failure(const RuntimeFailure &theFailure)
{
    EndBy("failure", ExplainFailure(theFailure));
}

void UnattendedPlayer::Lost(const Losses::Loss &theLoss)
{
    summary.Lost.push_back(theLoss);
}

void UnattendedPlayer::TakeAll()
{
    if (frmProcess::Me.Loaded)
        summary.TakeCounts();
    summary.PagesFound = std::max(progress.PagesFound(), summary.PagesProcessed);
    summary.Seconds = progress.Seconds();
    summary.TakeFiles(startTime);
    if (!summary.NewSite.empty() && summary.Seconds > 0)
        summary.BytesWritten = Host::BytesSince(summary.NewSite, startTime);
    summary.Boxes = Boxes();
    // How often each was met is known only now.
    for (Losses::Loss &loss : summary.Lost)
        for (const Losses::Loss &one : Losses::All())
            if (one.File == loss.File && one.Reason == loss.Reason)
                loss.Times = one.Times;
    for (const Losses::Loss &one : Losses::All())
        summary.LongNames += one.Reason == NameTooLong() ? one.Times : 0;
}

int UnattendedPlayer::Finish(int theCode)
{
    progress.End();
    int Result = Player::Finish(theCode);
    TakeAll();
    const bool isMissed = Result == 0 || Result == endScript;
    if (isMissed && summary.Report.empty()) {
        EndBy("failure", {true, {}, 0, "there is no report: " + ExplainMissingReport(LastBox())});
        Result = endFailure;
    }
    summary.Status = Result;
    std::cerr << Complaints(summary);
    // A run that has not begun has no numbers.
    if (!options.IsQuiet && summary.Seconds > 0)
        std::cout << summary.ForPeople() << std::flush;
    if (!summary.Reason.empty())
        std::cerr << summary.Outcome << ": " << summary.Reason << '\n';
    return SaveResult(options, summary.AsJson(), Result);
}
