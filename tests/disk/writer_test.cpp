// Files made beside the program's work: all of them, whole, and failures told.
#include "TestSite.h"
#include "disk/Writer.h"

using WriterTest = TestSite;

TEST_F(WriterTest, MakesAllFilesAndTellsFailures)
{
    Writer writer;
    EXPECT_TRUE(writer.Finish().empty()) << "with nothing handed over yet";
    const auto path = [&](int i) { return HostForm(site / std::to_string(i)); };
    const auto content = [](int i) {
        return std::make_shared<const Text>(std::to_string(i).append(i == 600 ? 9 << 20 : 10, '.'));
    };
    PutAt(path(650), "there already");
    for (int i = 0; i < 700; ++i) {
        writer.Put(path(i), content(i));
        if (i == 300) {
            EXPECT_TRUE(writer.Finish().empty());
        }
    }
    writer.Hurry();
    const auto failures = writer.Finish();
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_EQ(failures[0].Where, path(650));
    EXPECT_TRUE(writer.Finish().empty()) << "told once";
    for (int i = 0; i < 700; ++i)
        ASSERT_EQ(OnDisk("site on x/" + std::to_string(i)), i == 650 ? "there already" : *content(i));
}

TEST_F(WriterTest, AFileThatCannotBeWrittenWholeIsLeftOut)
{
    PutAt(site / "old", "old");
    for (const char *name : {"old", "new"})
        EXPECT_THROW(Io::Copy(HostForm(site), HostForm(site / name)), RuntimeFailure);
    EXPECT_EQ(OnDisk("site on x/old") + OnDisk("site on x/new"), "old(none)");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(site), {}), 1) << "nothing else either";
}
