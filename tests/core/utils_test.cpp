#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/Utils.h"

using Utils = TestSite;
using Rows = std::vector<std::pair<Text, Text>>;

TEST_F(Utils, TextsAreStrippedReplacedCountedAndClosedUp)
{
    const std::vector<std::array<Text, 4>> ends = {{"\\a\\b", "\\", "a\\b", "\\a\\b"}, {"a\\", "\\", "a\\", "a"},
        {"\\\\a", "\\", "\\\\a", "\\\\a"}, {"a\\\\", "\\", "a\\\\", "a\\\\"}, {"\\", "\\", "\\", "\\"},
        {"http://", "http://", "", ""}, {"www.a.b", "www.", "a.b", "www.a.b"}, {"abab", "ab", "abab", "abab"},
        {"abxab", "ab", "xab", "abx"}, {"WWW.a", "www.", "WWW.a", "WWW.a"}, {"a", "abc", "a", "a"}, {"", "a", "", ""}};
    for (const auto &[text, sub, fromFront, fromEnd] : ends) {
        EXPECT_EQ(StripFromEnds(text, sub, 1), fromFront) << text;
        EXPECT_ALL(StripFromEnds(text, sub, 0) == fromEnd, StripFromEnds(text, sub, True) == fromEnd) << text;
    }
    EXPECT_EQ(ReplaceText("aaa", "aa", "b") + ReplaceText("abc", "B", "x") + ReplaceText("aX", "X", "XX"), "baabcaXX");
    for (const auto &[path, parent] : Rows{{"a\\b\\", "a"}, {"a\\b", "a"}, {"a", "0"}, {"a\\", "0"}, {"", "0"},
             {"x:\\", "0"}, {"\\a", ""}, {"a/b", "0"}, {"a\\" + Text(32765, 'b'), "a"}, {"a\\" + Text(32766, 'b'), ""}})
        EXPECT_EQ(StripFileFromEnd(path), parent) << path.substr(0, 9);
    EXPECT_EQ(AddTrailingSlash(StripFileFromEnd("a")) + AddTrailingSlash(""), "0\\\\");
    for (const auto &[before, after] :
        Rows{{"a href = x", "a href=x"}, {"a  =  b", "a = b"}, {" = = ", "=="}, {"", ""}})
        EXPECT_EQ(CloseUpEquals(before), after) << before;
    EXPECT_ALL(CountInString("..\\..\\x", "..\\") == 2, CountInString("aAaA", "aa") == 3);
    EXPECT_ALL(CountInString(Text(32767, 'a'), "a") == 32767, CountInString(Text(32768, 'a'), "a") == 0) << "16 bits";
    ShowMessageLines({"a", ""});
    LogMessageLines({"a"});
    EXPECT_EQ(front.Boxes, std::vector<Text>{"a\r\n\r\n"});
}
