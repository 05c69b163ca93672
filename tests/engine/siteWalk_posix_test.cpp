// Sites with symbolic links.
#include "SiteRun.h"
#include "engine/RouteNav.h"
#include "engine/SiteWalk.h"

using Walk = SiteRun;

TEST_F(Walk, ALinkIntoItsOwnProjectStopsTheWalk)
{
    Put("a/b.htm", "<p>");
    std::filesystem::create_directory_symlink(program / "0001", site / "z");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    EXPECT_EQ(front.Failures[0].Where, "x:\\z");
    const Text said = front.Failures[0].What;
    EXPECT_NE(said.find("\\0001, contains x:\\z, a directory of your site. "), Text::npos) << said;
    EXPECT_EQ(OnDisk("0001/a/b.htm"), "<p>\r\n");
}

TEST_F(Walk, ADirectoryOfTooManyFilesOrDirectoriesFailsBeforeItsFirst)
{
    // Hard links are made fastest.
    Put("many/0", "");
    std::filesystem::create_directory(site / "crowd");
    std::filesystem::create_directory_symlink(program / "imgs", site / "crowd" / "0");
    for (const char *dir : {"many", "crowd"})
        for (int i = 1; i < 32768; ++i)
            std::filesystem::create_hard_link(site / dir / "0", site / dir / std::to_string(i));
    Put("a.txt", "treated");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    EXPECT_EQ(OnDisk("0001/a.txt"), "treated");
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "crowd"));
    for (const char *dir : {"x:\\many", "x:\\crowd"}) {
        TakePage(dir);
        EXPECT_THROW(SiteWalk(), RuntimeFailure) << dir;
        EXPECT_THROW(RouteNav(), RuntimeFailure) << dir;
    }
}
