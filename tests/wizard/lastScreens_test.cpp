// The screens from the keywords to the summary, and the filters.
#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/frmSplash.h"
#include "wizard/frmConfirm.h"
#include "wizard/frmFilters.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmKeywordsHowMany.h"
#include <chrono>

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
    static void Type(Form &theForm, const Text &theKeys)
    {
        for (const char key : theKeys)
            UserKey(The<TextBox>(theForm, "Text1"), key);
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

TEST_F(LastScreens, KeysOfTheKeywordBox)
{
    frmKeywords::Me.Show();
    Type(frmKeywords::Me, "\rgood one\r");
    EXPECT_EQ(Keywords().Rows(), Rows{"good one"});
    Type(frmKeywords::Me, "a+");
    EXPECT_EQ(The<TextBox>(frmKeywords::Me, "Text1").Text, "a+");
    Type(frmKeywords::Me, "\r");
    EXPECT_TRUE(HelpBoxOpen);  // a second slide would have closed it
    EXPECT_EQ(front.Beeps, 2);
    Click(frmKeywords::Me, "btn_AddKeyword");
    EXPECT_EQ(Keywords().ListCount(), 1);
}

TEST_F(LastScreens, FiftyThousandKeywordsTakeNoTime)
{
    Text file;
    for (int i = 0; i < 50000; ++i)
        file += "keyword " + std::to_string(i * 7919 % 50000) + "\r\n";
    Files::Write(InStoreDir("0001.key"), file);
    const auto start = std::chrono::steady_clock::now();
    frmKeywords::Me.Show();
    Click(frmKeywords::Me, "btnNext");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    EXPECT_EQ(KeywordTotal, 50000);
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

TEST_F(LastScreens, FiltersAreAddedInTwoWaysAndSavedByDone)
{
    frmFilters::Me.Show();
    Type(frmFilters::Me, "PHP");
    Click(frmFilters::Me, "btnAddFilter");
    Type(frmFilters::Me, "HTM\r");
    Click(frmFilters::Me, "btnResetList");  // answered No
    EXPECT_EQ(frmFilters::List1.Rows(), (Rows{"htm", "tml", "php", "HTM"}));
    front.Answer = answerYes;
    Click(frmFilters::Me, "btnClearList");
    Click(frmFilters::Me, "btnDone");
    EXPECT_EQ(Stored("filters.lst"), "\r\n");
    frmFilters::Me.Show();
    EXPECT_EQ(frmFilters::List1.Rows(), Rows{""});
}
