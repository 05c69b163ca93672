// The player of the command "expand": it shows progress instead of a transcript, and tells in the end what came of the
// run.
#pragma once
#include "player/Findings.h"
#include "player/Player.h"
#include "player/Progress.h"
#include "player/RunOptions.h"
#include "player/Summary.h"

class UnattendedPlayer final : public Player
{
public:
    UnattendedPlayer(std::vector<Action> theScript, const RunOptions &theOptions);

    void Show(Form &theForm) override;
    void DoEvents() override;
    void Standstill(const Text &theWhere, const Text &theWhy) override;
    void Lost(const Losses::Loss &theLoss) override;
    void Failure(const RuntimeFailure &theFailure) override;

protected:
    int Finish(int theCode) override;
    // That a line of the script can't be played says nothing to a user. Finish tells why there is no report.
    void Complain(const Text &) override {}

private:
    void EndBy(const Text &theOutcome, const Finding &theReason);
    void TakeAll();

    const RunOptions options;
    Progress progress;
    Summary summary;
    std::int64_t startTime = 0;  // of the run, by the clock of the file system
};
