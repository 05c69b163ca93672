// A RowFinder finds the same as a separate search for each row.
#include "TestSite.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "engine/RowFinder.h"

TEST(RowFinder, FindsWhatAPlainSearchFinds)
{
    std::minstd_rand random(3);
    const auto textOf = [&](std::size_t theLength) {
        Text Result;
        while (Result.size() < theLength)
            Result += "ab.\\\xE9\0"[random() % 6];
        return Result;
    };
    ListBox &list = frmLists::ListLinkTrash;
    RowFinder finder(list);
    for (int round = 0; round < 2000; ++round) {
        std::vector<Text> rows;
        for (unsigned i = 0; i < random() % 4; ++i)
            rows.push_back(textOf(1 + random() % 4));
        list.SetRows(rows);
        const Text text = textOf(random() % 12);
        const bool expected =
            std::any_of(rows.begin(), rows.end(), [&](const Text &row) { return Contains(text, row); });
        ASSERT_EQ(finder.AnyRowIn(text), expected) << text;
    }
}

TEST(RowFinder, TakesChangesOfTheListAndEmptyRows)
{
    ListBox &list = frmLists::ListDomainExtensions;
    RowFinder finder(list);
    list.SetRows({"x", ".com"});
    EXPECT_ALL(finder.AnyRowIn("ends in x"), finder.AnyRowIn("a.com"), !finder.AnyRowIn("a.co"));
    list.SetRows({});
    EXPECT_FALSE(finder.AnyRowIn("x"));
    list.AddItem("");
    EXPECT_TRUE(finder.AnyRowIn("")) << "an empty row occurs in every text";
}
