#include "core/RandomBas.h"
#include <gtest/gtest.h>
#include <set>

TEST(RandomBas, NumbersAreDrawnAndPadded)
{
    EXPECT_EQ(PadNumberLeft(7, 6) + PadNumberLeft(1234567, 6) + PadNumberLeft(7, -3), "00000712345677");
    std::set<double> drawn, pairs;
    for (int i = 0; i < 2000; ++i) {
        EXPECT_EQ(GetRandomNumber(1) + GetRandomNumber(0), 2);
        drawn.insert(GetRandomNumber(999999));
        const double first = GetRandomNumber(10);
        pairs.insert(first * 10 + GetRandomNumber(10));
    }
    EXPECT_EQ(pairs.size(), 100u) << "each number follows each other one";
    EXPECT_GT(drawn.size(), 1900u) << "few of 2,000 draws are equal";
    EXPECT_TRUE(*drawn.begin() >= 1 && *drawn.begin() < 20000 && *drawn.rbegin() <= 999999 && *drawn.rbegin() > 980000);
}
