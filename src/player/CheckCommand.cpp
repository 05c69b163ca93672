#include "player/CheckCommand.h"
#include "core/frmSplash.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "player/CheckPlayer.h"
#include "player/CheckReport.h"
#include "player/HelpPages.h"
#include "player/Transcript.h"
#include "player/WizardScript.h"
#include <iostream>
#include <sstream>

int CheckCommand(Arguments &theArguments)
{
    const RunOptions options = ReadRunOptions("check", theArguments);
    if (options.WantsHelp) {
        std::cout << HelpOfCheck();
        return 0;
    }
    // What the script of a run can't hold is refused here too.
    WizardScript(options);
    Findings findings;
    CheckKeywords(options, findings);
    if (!CheckPlace(options, findings))
        return CheckReport{options, findings, {}, nullptr, Io::FreeSpace(Paths::ProgramHostDir() + '/')}.Tell();
    SetTranscript(false);
    Host::HoldInterrupts();
    auto rehearsal = std::make_unique<Rehearsal>(options);
    std::istringstream script(WizardScript(rehearsal->Options()));
    CheckPlayer player(ReadScript(script), std::move(rehearsal), options, std::move(findings));
    return player.Play(frmSplash::Me);
}
