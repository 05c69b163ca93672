#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/RandomBas.h"
#include "core/Utils.h"
#include <set>

using Utils = TestSite;
using Rows = std::vector<std::pair<Text, Text>>;

TEST_F(Utils, TextsAreStrippedReplacedAndClosedUp)
{
    const std::vector<std::array<Text, 4>> ends = {{"\\a\\b", "\\", "a\\b", "\\a\\b"}, {"a\\", "\\", "a\\", "a"},
        {"\\\\a", "\\", "\\\\a", "\\\\a"}, {"a\\\\", "\\", "a\\\\", "a\\\\"}, {"\\", "\\", "\\", "\\"},
        {"http://", "http://", "", ""}, {"www.a.b", "www.", "a.b", "www.a.b"}, {"abab", "ab", "abab", "abab"},
        {"abxab", "ab", "xab", "abx"}, {"WWW.a", "www.", "WWW.a", "WWW.a"}, {"a", "abc", "a", "a"}, {"", "a", "", ""}};
    for (const auto &[text, sub, fromFront, fromEnd] : ends) {
        EXPECT_EQ(StripFromEnds(text, sub, 1), fromFront) << text;
        EXPECT_TRUE(StripFromEnds(text, sub, 0) == fromEnd && StripFromEnds(text, sub, True) == fromEnd) << text;
    }
    EXPECT_EQ(ReplaceText("aaa", "aa", "b") + ReplaceText("abc", "B", "x") + ReplaceText("aX", "X", "XX"), "baabcaXX");
    for (const auto &[path, parent] : Rows{{"a\\b\\", "a"}, {"a\\b", "a"}, {"a", "0"}, {"a\\", "0"}, {"", "0"},
             {"x:\\", "0"}, {"\\a", ""}, {"a/b", "0"}, {"a\\" + Text(32765, 'b'), "a"}, {"a\\" + Text(32766, 'b'), ""}})
        EXPECT_EQ(StripFileFromEnd(path), parent) << path.substr(0, 9);
    EXPECT_EQ(AddTrailingSlash(StripFileFromEnd("a")) + AddTrailingSlash(""), "0\\\\");
    for (const auto &[before, after] :
        Rows{{"a href = x", "a href=x"}, {"a  =  b", "a = b"}, {" = = ", "=="}, {"", ""}})
        EXPECT_EQ(CloseUpEquals(before), after) << before;
    ShowMessageLines({"a", ""});
    LogMessageLines({"a"});
    EXPECT_EQ(front.Boxes, std::vector<Text>{"a\r\n\r\n"});
}

TEST_F(Utils, NumbersAreCountedDrawnAndPadded)
{
    EXPECT_TRUE(CountInString("..\\..\\x", "..\\") == 2 && CountInString("aAaA", "aa") == 3);
    EXPECT_TRUE(CountInString(Text(32767, 'a'), "a") == 32767 && CountInString(Text(32768, 'a'), "a") == 0)
        << "16 bits";
    EXPECT_EQ(PadNumberLeft(7, 6) + PadNumberLeft(1234567, 6) + PadNumberLeft(7, -3), "00000712345677");
    std::set<double> drawn;
    for (int i = 0; i < 2000; ++i) {
        EXPECT_EQ(GetRandomNumber(1) + GetRandomNumber(0), 2);
        drawn.insert(GetRandomNumber(999999));
    }
    EXPECT_GT(drawn.size(), 1900u) << "of 2,000 draws few are the same";
    EXPECT_TRUE(*drawn.begin() >= 1 && *drawn.begin() < 20000 && *drawn.rbegin() <= 999999 && *drawn.rbegin() > 980000);
}
