// The program ferncastle-play: Ferncastle without a display, played by a script or by a command.
#include "core/TextOps.h"
#include "core/Version.h"
#include "core/frmSplash.h"
#include "disk/Paths.h"
#include "player/CheckCommand.h"
#include "player/ExpandCommand.h"
#include "player/HelpPages.h"
#include "player/Host.h"
#include "player/Player.h"
#include "toolkit/Gates.h"
#include <exception>
#include <fstream>
#include <iostream>

static void MapDrive(const Text &theValue)
{
    const char letter = theValue.empty() ? '\0' : LowerChar(theValue[0]);
    if (theValue.size() < 3 || theValue[1] != '=' || letter <= 'c' || letter > 'z')
        throw OptionError{"--drive needs a letter from d on and a directory, such as s=/home, not " + theValue};
    Paths::MapDrive(letter, Host::FullPath(theValue.substr(2)));
}

static int PlayScript(const Text &theFile)
{
    RequireProgramDir();
    std::ifstream file(theFile);
    if (!theFile.empty() && !file)
        throw OptionError{"cannot read " + theFile};
    Player player(ReadScript(theFile.empty() ? std::cin : file));
    return player.Play(frmSplash::Me);
}

static int Run(Arguments theArguments)
{
    Text scriptFile;
    while (!theArguments.AreAtEnd()) {
        const Text word = theArguments.Next();
        if (scriptFile.empty() && word == "expand")
            return ExpandCommand(theArguments);
        if (scriptFile.empty() && word == "check")
            return CheckCommand(theArguments);
        if (word == "--drive")
            MapDrive(theArguments.ValueOf(word));
        else if (scriptFile.empty() && !word.starts_with("-"))
            scriptFile = word;
        else if (word == "--version" || word == "--help") {
            std::cout << (word == "--help" ? Text(helpOfPlay) : Text("ferncastle-play ") + ProgramVersion + '\n');
            return 0;
        } else if (!TakeCommonOption(word, theArguments))
            throw OptionError{"there is no option " + word + "; usage: ferncastle-play --help"};
        theArguments.RefuseValue(word);
    }
    return PlayScript(scriptFile);
}

int main(int argc, char **argv)
{
    try {
        return Run(Arguments(Host::WordsOf(argc, argv)));
    } catch (const OptionError &error) {
        std::cerr << "ferncastle-play: " << error.What << '\n';
        return endScript;
    } catch (const RuntimeFailure &failure) {
        std::cerr << "ferncastle-play: " << failure.What << ": " << failure.Where << '\n';
        return endFailure;
    } catch (const std::exception &failure) {
        std::cerr << "ferncastle-play: " << FailureOf(failure).What << '\n';
        return endFailure;
    }
}
