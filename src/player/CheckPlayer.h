// The player of the command "check": it rehearses a run, and notes what would go wrong in it.
#pragma once
#include "player/Findings.h"
#include "player/Player.h"
#include "player/Progress.h"
#include "player/Rehearsal.h"
#include "player/Summary.h"

class CheckPlayer final : public Player
{
public:
    // theFindings are those from before the rehearsal.
    CheckPlayer(std::vector<Action> theScript, std::unique_ptr<Rehearsal> theRehearsal, const RunOptions &theOptions,
        Findings theFindings);

    void Show(Form &theForm) override;
    void DoEvents() override;
    int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle) override;
    void Standstill(const Text &theWhere, const Text &theWhy) override;
    void Lost(const Losses::Loss &theLoss) override;
    void Failure(const RuntimeFailure &theFailure) override;

protected:
    int Finish(int theCode) override;
    void Complain(const Text &theWhy) override { reason = theWhy; }

private:
    void Add(bool isError, const Text &theFile, const Text &theWhat);
    void AddAtLink(bool isError, const Text &theWhat);
    void EndPage(const RuntimeFailure &theFailure);
    void LookAtLink();
    void LookAtDirectory();
    void LookAtNewSite();

    std::unique_ptr<Rehearsal> rehearsal;
    const RunOptions options;
    Findings findings;
    Progress progress;
    Summary summary;
    std::pair<long, std::int64_t> lastLink;  // the page's number and the position in it
    Text lastDirectory;
    bool isStandstill = false;  // the page in hand is being left because of one
    bool hasReport = false;
    Text reason;  // why the script could not be played to its end
};
