// A program directory of its own in which a script is played by the real program. The head of a script may hold, for
// the tests alone:
//   #with PATH [TEXT]   makes a file of the program directory, or a directory where PATH ends in "/"
//   #link PATH TO       makes a symbolic link
//   #without PATH       removes a file or a directory
//   #exit N             the exit status that is expected instead of 0
// In TEXT \r\n stands for one line end.
#pragma once
#include "TestSite.h"
#include "core/TextOps.h"
#include "core/Utils.h"

struct PlayedProgram {
    const std::filesystem::path directory = std::filesystem::absolute(
        std::filesystem::temp_directory_path() / ("played-" + std::to_string(std::random_device{}())))
                                                .lexically_normal();
    std::filesystem::path log = directory / "play.log";  // what the player writes, while it runs
    int expected = 0;
    Text under;  // words of the shell before the player's own
    Text said;   // all that the player wrote

    PlayedProgram()
    {
        std::filesystem::copy(FERNCASTLE_DATA_DIR, directory, std::filesystem::copy_options::recursive);
        std::filesystem::remove(directory / "README.md");  // it isn't shipped
    }
    ~PlayedProgram() { std::filesystem::remove_all(directory); }
    PlayedProgram(const PlayedProgram &) = delete;
    PlayedProgram &operator=(const PlayedProgram &) = delete;

    void SetUp(const std::filesystem::path &theScript)
    {
        std::ifstream lines(theScript);
        for (Text line; std::getline(lines, line);) {
            std::istringstream words(line);
            Text verb, path, text;
            words >> verb >> path >> std::ws;
            std::getline(words, text);
            if (verb == "#exit")
                expected = static_cast<int>(NumberAtStart(path));
            else if (verb == "#with" && path.ends_with("/"))
                std::filesystem::create_directories(directory / path);
            else if (verb == "#with")
                TestSite::PutAt(directory / path, ReplaceText(text, "\\r\\n", CRLF));
            else if (verb == "#link")
                std::filesystem::create_symlink(text, directory / path);
            else if (verb == "#without")
                std::filesystem::remove_all(directory / path);
        }
    }

    Text seed = "7";

    // Plays the script and returns the exit status, as RunCommand does.
    int Play(const std::filesystem::path &theScript)
    {
        const Text place = HostForm(directory);
        const int Result = RunCommand(under,
            {std::filesystem::absolute(FERNCASTLE_PLAYER).string(), "--seed", seed, "--program-dir", place, "--drive",
                "s=" + place, HostForm(theScript)},
            '>' + ('"' + log.string() + '"') + " 2>&1");
        std::ostringstream content;
        content << std::ifstream(log, std::ios::binary).rdbuf();
        said = content.str();
        std::filesystem::remove(log);
        return Result;
    }
};
