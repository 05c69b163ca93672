// Plays every script of tests/plays with the real program, each in a program directory of its own.
//
// The head of a script may hold, for this test alone:
//   #with PATH [TEXT]   makes a file of the program directory, or a directory where PATH ends in "/"; \r\n in TEXT is
//   one #exit N             the exit status that is expected instead of 0
#include "TestSite.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include <cstdlib>

namespace fs = std::filesystem;

namespace
{
std::vector<Text> AllPlays()
{
    std::vector<Text> Result;
    for (const auto &file : fs::directory_iterator(FERNCASTLE_PLAYS_DIR))
        if (file.path().extension() == ".play")
            Result.push_back(file.path().stem().string());
    std::sort(Result.begin(), Result.end());
    return Result;
}

struct Plays : testing::TestWithParam<Text> {
    const fs::path program = fs::temp_directory_path() / ("plays-" + std::to_string(std::random_device{}()));
    Plays() { fs::copy(FERNCASTLE_DATA_DIR, program, fs::copy_options::recursive); }
    ~Plays() override { fs::remove_all(program); }
};
}  // namespace

TEST_P(Plays, GoAsWritten)
{
    const fs::path script = fs::path(FERNCASTLE_PLAYS_DIR) / (GetParam() + ".play");
    std::ifstream lines(script);
    int expected = 0;
    for (Text line; std::getline(lines, line);) {
        if (line.starts_with("#exit "))
            expected = static_cast<int>(NumberAtStart(line.substr(6)));
        if (!line.starts_with("#with "))
            continue;
        const std::size_t blank = line.find(' ', 6);
        const Text path = line.substr(6, blank - 6);
        if (path.ends_with("/"))
            fs::create_directories(program / path);
        else
            TestSite::PutAt(
                program / path, blank == Text::npos ? "" : ReplaceText(line.substr(blank + 1), "\\r\\n", CRLF));
    }
    const fs::path log = program / "play.log";
    const Text command = "\"" FERNCASTLE_PLAYER "\" --seed 7 --program-dir \"" + program.string() + "\" --drive s=\"" +
                         program.string() + "\" \"" + script.string() + "\" >\"" + log.string() + "\" 2>&1";
    const int status = std::system(command.c_str());
    std::ostringstream said;
    said << std::ifstream(log).rdbuf();
    EXPECT_EQ(status / 256, expected) << said.str();
}

INSTANTIATE_TEST_SUITE_P(All, Plays, testing::ValuesIn(AllPlays()), [](const auto &play) { return play.param; });
