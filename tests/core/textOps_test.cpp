#include "base/Failure.h"
#include "core/TextOps.h"
#include <gtest/gtest.h>

TEST(TextOps, PartsAreCutAndFoundAtTheirEdges)
{
    const Text abc = "abc", twice = "abcABC";
    EXPECT_EQ(LeftPart(abc, 0) + LeftPart(abc, 2) + LeftPart(abc, 9) + "," + RightPart(abc, 0) + RightPart(abc, 2) +
                  RightPart(abc, 9) + "," + MidPart(abc, 1, 2) + MidPart(abc, 3, 9) + MidPart(abc, 4, 1) +
                  MidPart(abc, 2, 0),
        "ababc,bcabc,abc");
    EXPECT_THROW(LeftPart(abc, -1), RuntimeFailure);
    EXPECT_THROW(RightPart("", -1), RuntimeFailure);
    EXPECT_THROW(MidPart(abc, 0, 1), RuntimeFailure);
    EXPECT_THROW(MidPart(abc, 9, -1), RuntimeFailure);
    EXPECT_THROW(FindText(0, abc, "a"), RuntimeFailure);
    const std::vector<std::tuple<std::int64_t, Text, Text, std::int64_t, std::int64_t>> rows = {{1, twice, "ABC", 4, 1},
        {2, twice, "abc", 0, 4}, {4, twice, "c", 0, 6}, {7, twice, "c", 0, 0}, {9, abc, "", 0, 0}, {1, "", "", 1, 1},
        {3, abc, "", 3, 3}, {4, abc, "", 4, 4}, {5, abc, "", 0, 0}, {1, "", "a", 0, 0}, {1, "\xc4", "\xe4", 0, 0}};
    for (const auto &[start, in, what, exact, folded] : rows)
        EXPECT_TRUE(FindText(start, in, what) == exact && FindText(start, in, what, true) == folded) << what << start;
    EXPECT_TRUE(FindLastText("a\\b\\c", "\\") == 4 && FindLastText("aaa", "aa") == 2 && FindLastText(abc, "B") == 0);
    EXPECT_TRUE(FindLastText("abcabc", abc, 6, false) == 4 && FindLastText(twice, abc, 99, false) == 1);
    EXPECT_TRUE(FindLastText("abcabc", abc, 5, false) == 1 && FindLastText(twice, abc, 99, true) == 4)
        << "the start position limits where the occurrence ends";
    EXPECT_TRUE(LowerText("AZ@[\xc4") == "az@[\xc4" && !EqualsIgnoringCase("[", "{") && !EqualsIgnoringCase("a", "ab"));
    const std::vector<std::pair<Text, double>> numbers = {{"  12 apples", 12}, {"-3.5x", -3.5}, {"+7", 7}, {".5", 0.5},
        {"5.", 5}, {"1.2.3", 1.2}, {"1e5", 1}, {"1,000", 1}, {"0x10", 0}, {"", 0}, {".", 0}, {"- 3", 0}, {"--3", 0},
        {"inf", 0}};
    for (const auto &[text, number] : numbers)
        EXPECT_EQ(NumberAtStart(text), number) << text;
    EXPECT_EQ(NumberText(7) + " " + NumberText(3.5) + " " + NumberText(-1) + " " + NumberText(1e6), "7 3.5 -1 1000000");
}
