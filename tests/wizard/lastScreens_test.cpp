// The screens from the keywords to the summary.
#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/frmSplash.h"
#include "wizard/frmConfirm.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmKeywordsHowMany.h"
#include <ctime>

namespace
{
using Rows = std::vector<Text>;

struct LastScreens : TestSite {
    LastScreens()
    {
        std::filesystem::create_directories(program / "0001_store");
        frmSplash::Init_Vars();
        ProjectNumber = "0001";
    }
    static ListBox &Keywords() { return The<ListBox>(frmKeywords::Me, "lstKeywords"); }
    static Text Stored(const Text &theName) { return Files::Read(InStoreDir(theName)); }
};
}  // namespace

TEST_F(LastScreens, SortsByLengthAndLeavesEmptyRowsBehind)
{
    frmKeywords::Me.Show();
    Keywords().SetRows({"ccc", "", "aaa", "b", "bb", "", "aa"});
    Click(frmKeywords::Me, "btnBack");
    EXPECT_EQ(Stored("0001.key"), "b\r\nbb\r\naa\r\nccc\r\naaa\r\n");
    EXPECT_EQ(KeywordTotal, 5);
    frmKeywords::Me.Show();
    Keywords().SetRows({"bb", "", "a"});
    std::filesystem::remove_all(program / "0001_store");
    Click(frmKeywords::Me, "btnNext");  // the write fails after the sort, so the screen stays
    EXPECT_EQ(Keywords().Rows(), (Rows{"", "a", "bb"}));
}

TEST_F(LastScreens, LoadsKeywordFiles)
{
    const std::vector<std::pair<Text, Rows>> files = {{"one\r\n\r\ntwo\r\n", {"one", "", "two"}},
        {"one\rtwo\rthree", {"one", "wo", "hree"}}, {"one\ntwo\n", {"one\ntwo\n"}}, {"one\r\nx", {"one"}},
        {"one\r\nxy", {"one", "xy"}}};
    ListBox &list = The<ListBox>(frmConfirm::Me, "lstKeywords");
    for (const auto &[content, rows] : files) {
        Files::Write(InStoreDir("0001.key"), content);
        list.Clear();
        KeywordTotal = 7;
        EXPECT_EQ(frmKeywords::LoadThoseKeywords(list, ""), 0);
        EXPECT_EQ(list.Rows(), rows) << content;
        EXPECT_EQ(KeywordTotal, 7 + static_cast<long>(rows.size()));
    }
    EXPECT_EQ(frmKeywords::LoadThoseKeywords(list, "0002"), 2);
    EXPECT_FALSE(frmKeywords::Me.Loaded);
}

TEST_F(LastScreens, FiftyThousandKeywordsTakeNoTime)
{
    std::clock_t took = 0;  // by a tenth as many
    for (const int count : {5000, 50000}) {
        Text file;
        for (int i = 0; i < count; ++i)
            file += "keyword " + std::to_string(i * 7919 % count) + "\r\n";
        Files::Write(InStoreDir("0001.key"), file);
        const std::clock_t start = std::clock();
        frmKeywords::Me.Show();
        Click(frmKeywords::Me, "btnNext");
        EXPECT_TRUE(count == 5000 || std::clock() - start < 50 * took) << "not with the square of their number";
        took = std::clock() - start;
        EXPECT_EQ(KeywordTotal, count);
    }
}

TEST_F(LastScreens, NumberIsWhatTheTextBeginsWith)
{
    frmKeywordsHowMany::Me.Show();
    TextBox &box = The<TextBox>(frmKeywordsHowMany::Me, "txtKeywordsPerFilename");
    EXPECT_EQ(box.Text, "3");
    for (const auto &[typed, number] : std::vector<std::pair<Text, double>>{{"4x", 4}, {"2.5", 2.5}, {"", 0}}) {
        UserEdit(box, typed);
        Click(frmKeywordsHowMany::Me, "btnNext");
        EXPECT_EQ(KeywordsPerFilename, number);
        EXPECT_EQ(Stored("NumberOfKeywords.sav"), typed + "[][]\r\n");
        frmKeywordsHowMany::Me.Show();
        EXPECT_EQ(box.Text, typed);
    }
}
