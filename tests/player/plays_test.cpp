// Plays each script of tests/plays with the real program, in a program directory of its own.
#include "PlayedProgram.h"

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
    PlayedProgram program;
};
}  // namespace

TEST_P(Plays, GoAsWritten)
{
    const fs::path script = fs::path(FERNCASTLE_PLAYS_DIR) / (GetParam() + ".play");
    program.SetUp(script);
    const int status = program.Play(script);
    EXPECT_EQ(status, program.expected) << program.said;
}

INSTANTIATE_TEST_SUITE_P(All, Plays, testing::ValuesIn(AllPlays()), [](const auto &play) { return play.param; });
