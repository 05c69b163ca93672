// The program ferncastle-play: Ferncastle without a display, played by a script.
#include "core/TextOps.h"
#include "core/Version.h"
#include "core/frmSplash.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "player/Player.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

static const char *const usage =
    "usage: ferncastle-play [--program-dir DIR] [--drive x=DIR]... [--seed N] [SCRIPT]\n"
    "       ferncastle-play --version\n"
    "Plays a user's actions, one per line, from SCRIPT or from standard input. DEVELOPING.md describes them.\n"
    "--program-dir takes another program directory than the one that holds this program.\n"
    "--drive makes DIR the drive x:, for letters from d: on; drive c: is the root directory of this computer.\n"
    "--seed makes the random choices of a run repeatable.\n"
    "Exit status: 0 the script was played, 1 an expectation failed, 2 the script is wrong, 3 a failure, 4 a "
    "standstill.\n";

static Text FullPath(const Text &thePath)
{
    Text Result = std::filesystem::absolute(thePath).lexically_normal().string();
    while (Result.size() > 1 && Result.back() == '/')
        Result.pop_back();
    return Result;
}

static int Run(int argc, char **argv)
{
    Text scriptFile;
    for (int i = 1; i < argc; ++i) {
        const Text word = argv[i];
        const Text value = i + 1 < argc ? argv[i + 1] : "";
        if (word == "--program-dir" && !value.empty())
            Paths::SetProgramDir(FullPath(value)), ++i;
        else if (word == "--drive" && value.size() > 2 && value[1] == '=' && LowerChar(value[0]) > 'c' &&
                 LowerChar(value[0]) <= 'z')
            Paths::MapDrive(value[0], FullPath(value.substr(2))), ++i;
        else if (word == "--seed" && !value.empty())
            SetClock(static_cast<std::uint64_t>(std::max(0.0, NumberAtStart(value)))), ++i;
        else if (scriptFile.empty() && !word.starts_with("-"))
            scriptFile = word;
        else if (word == "--version") {
            std::cout << "ferncastle-play " << ProgramVersion << '\n';
            return 0;
        } else {
            std::cerr << usage;
            return word == "--help" ? 0 : endScript;
        }
    }
    if (!Files::IsDirectory(Paths::ProgramDir())) {
        std::cerr << "no such program directory: " << Paths::ProgramDir() << '\n';
        return endScript;
    }
    std::ifstream file(scriptFile);
    if (!scriptFile.empty() && !file) {
        std::cerr << "cannot read " << scriptFile << '\n';
        return endScript;
    }
    Player player(ReadScript(scriptFile.empty() ? std::cin : file));
    return player.Play(frmSplash::Me);
}

int main(int argc, char **argv)
{
    try {
        return Run(argc, argv);
    } catch (const std::exception &failure) {
        std::cerr << FailureOf(failure).What << '\n';
        return endFailure;
    }
}
