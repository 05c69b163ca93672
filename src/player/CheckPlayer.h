// The player of the command "check": it rehearses a run, and notes what would go wrong in it.
#pragma once
#include "player/Explain.h"
#include "player/Findings.h"
#include "player/Player.h"
#include "player/Progress.h"
#include "player/Rehearsal.h"
#include "player/Summary.h"
#include <unordered_set>

class CheckPlayer final : public Player
{
public:
    // theFindings are those from before the rehearsal.
    CheckPlayer(std::vector<Action> theScript, std::unique_ptr<Rehearsal> theRehearsal, const RunOptions &theOptions,
        Findings theFindings);

    void Show(Form &theForm) override;
    void Changed(Element &theElement) override;
    void DoEvents() override;
    int MsgBox(const Text &thePrompt, int theFlags, const Text &theTitle) override;
    void Standstill(const Text &theWhere, const Text &theWhy) override;
    void Lost(const Losses::Loss &theLoss) override;
    void Failure(const RuntimeFailure &theFailure) override;

protected:
    int Finish(int theCode) override;
    void Complain(const Text &) override {}

private:
    void Add(bool isError, const Text &theFile, const Text &theWhat);
    void Add(Finding theFinding);
    void EndPage(const RuntimeFailure &theFailure);
    void NoteUncopied(const FailedCopy &theCopy);
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
    std::unordered_set<Text> seen;  // directories
    bool isStandstill = false;      // the page in hand is being left because of one
    bool isWalking = false;         // through the site
    std::int64_t longNames = 0;
    std::size_t longestName = 0;
};
