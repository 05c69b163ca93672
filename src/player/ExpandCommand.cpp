#include "player/ExpandCommand.h"
#include "core/Utils.h"
#include "core/frmSplash.h"
#include "disk/Paths.h"
#include "player/HelpPages.h"
#include "player/Transcript.h"
#include "player/UnattendedPlayer.h"
#include "player/WizardScript.h"
#include <iostream>
#include <sstream>

// The options with which the script alone gives the same result.
static Text HowToPlay()
{
    Text Result =
        "# Play it with: ferncastle-play --program-dir '" + ReplaceText(Paths::ProgramHostDir(), "'", "'\\''") + "'";
    if (const auto seed = GivenSeed())
        Result += " --seed " + std::to_string(*seed);
    return Result + " SCRIPT\n";
}

int ExpandCommand(Arguments &theArguments)
{
    const RunOptions options = ReadRunOptions("expand", theArguments);
    if (options.WantsHelp) {
        std::cout << HelpOfExpand();
        return 0;
    }
    const Text script = WizardScript(options);
    if (const Text wrong = TooFewKeywords(options); !wrong.empty())
        throw OptionError{(options.Keywords.empty() ? "project " + options.Project : options.Keywords) + ": " + wrong};
    if (options.PrintsScript) {
        std::cout << HowToPlay() << script;
        return 0;
    }
    if (const Text wrong = WhyNotWritable(options); !wrong.empty())
        throw OptionError{wrong};
    SetTranscript(false);
    std::istringstream lines(script);
    UnattendedPlayer player(ReadScript(lines), options);
    return player.Play(frmSplash::Me);
}
