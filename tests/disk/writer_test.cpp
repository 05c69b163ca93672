// Files written beside the program's work: all of them, in their order, and failures told.
#include "TestSite.h"
#include "disk/Writer.h"

using WriterTest = TestSite;

TEST_F(WriterTest, WritesAllInOrderAndTellsFailures)
{
    Writer writer;
    EXPECT_TRUE(writer.Finish().empty()) << "with nothing handed over yet";
    const auto path = [&](int i) { return (site / std::to_string(i % 700)).string(); };
    for (int i = 0; i < 1400; ++i) {
        writer.Put(path(i), std::to_string(i).append(i == 600 ? 9 << 20 : 10, '.'));
        if (i == 300) {
            EXPECT_TRUE(writer.Finish().empty());
        }
    }
    writer.Put((program / "nowhere" / "f").string(), "lost");
    writer.Put(path(0), "last");
    const auto failures = writer.Finish();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].Where, (program / "nowhere" / "f").string());
    EXPECT_TRUE(writer.Finish().empty()) << "told once";
    EXPECT_EQ(OnDisk("site on x/0"), "last");
    for (int i = 701; i < 1400; ++i)
        ASSERT_EQ(OnDisk(Text("site on x/").append(std::to_string(i % 700))), std::to_string(i).append(10, '.'));
}

TEST_F(WriterTest, TheProgramReadsWhatItHandedOver)
{
    StartProject();
    Put("a.htm", "source");
    const Text page = "c:" + (program / "0001" / "a.htm").string();
    Text target = page;
    std::replace(target.begin(), target.end(), '/', '\\');
    Files::Copy("x:\\a.htm", target);
    EXPECT_EQ(OnDisk("0001/a.htm"), "") << "the file is there, its bytes are not yet";
    Files::Write(target, "routed");
    EXPECT_EQ(Files::Read(target), "routed");
    Files::Append(target, " and more");
    PendingWrites::Flush();
    EXPECT_EQ(OnDisk("0001/a.htm"), "routed and more");
    Files::Copy("x:\\a.htm", target);
    EXPECT_EQ(OnDisk("0001/a.htm"), "source") << "over a file that is there at once";
    EXPECT_TRUE(PendingWrites::TakeFailures().empty());
}
