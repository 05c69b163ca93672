// Which files a run treats or copies, and where it stops.
#include "SiteRun.h"
#include "engine/RouteNav.h"
#include "engine/SiteWalk.h"

using Walk = SiteRun;

TEST_F(Walk, WalksTheSiteAndFillsTheProject)
{
    PutAt(program / "0001_store" / "BrokenLinksFiles.sav", "of an earlier run");
    Put("Index.HTM", "<a href=\"/b/c/\">C</a><a href=\"B.txt\">");
    Put("B.txt", "Kept As It Is");
    Put("b/pic.JPG", "a picture");
    Put("b/c/index.htm", "<A HREF=\"/Index.htm\">Home</A>");
    Put("b/.hidden.htm", "never seen");
    RunSite();
    EXPECT_EQ(OnDisk("0001/B.txt"), "Kept As It Is");
    EXPECT_EQ(OnDisk("0001/b/pic.JPG"), "a picture");
    EXPECT_EQ(NewPage("b/c/index.htm"), "<a href=\"../../NEW.htm\">home</a>\r\n\r\n") << "expanded, then routed";
    EXPECT_EQ(NewFiles(""), "B.txt Index.HTM NEW.htm NEW.txt");
    EXPECT_EQ(NewFiles("b/c"), "NEW.htm index.htm");
    EXPECT_EQ(NewFiles("b"), "pic.JPG");
    EXPECT_EQ(OnDisk("0001_store/BrokenLinksFiles.sav"), "(none)");
    EXPECT_EQ(frmLists::lstMediaFilesCnt.Rows(), (std::vector<Text>{"1", "0"}));
    EXPECT_ALL(ReportFinished, front.Failures.empty());
    EXPECT_FALSE(frmProcess::Me.Loaded);
}

TEST_F(Walk, OptionsAreReadAfreshDuringTheRun)
{
    for (const char *file : {"A.gif", "b.gif", "c/d.htm"})
        Put(file, "GIF");
    front.AtYield = [] {
        static_cast<TestFront &>(ThePresentation()).AtYield = nullptr;
        EXPECT_ALL(Click(frmProcess::Me, "optSubdirs"), Click(frmProcess::Me, "optUseFilters"));
    };
    RunSite();
    EXPECT_EQ(OnDisk("0001/A.gif"), "gif\r\n") << "copied before the clicks, then treated as a page by the route pass";
    EXPECT_EQ(OnDisk("0001/b.gif"), "gif\r\n\r\n") << "treated as a page by both";
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "c"));
}

TEST_F(Walk, TheSiteIsNeverItsOwnNewSite)
{
    PutAt(program / "0001" / "a.htm", "KEPT");
    Paths::MapDrive('x', HostForm(program / "0001"));
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    const Text said = front.Failures[0].What;
    EXPECT_TRUE(said.starts_with("The directory of your site, x:\\, is also the directory of the new site, ")) << said;
    EXPECT_EQ(OnDisk("0001/a.htm"), "KEPT");
}

TEST_F(Walk, BytesPassThroughUnchanged)
{
    Text every;
    for (int c = 1; c < 256; ++c)
        every += static_cast<char>(c);
    Put("a.htm", every);
    Put("b.bin", every);
    RunSite();
    EXPECT_EQ(OnDisk("0001/a.htm"), LowerText(every) + "\r\n\r\n") << "only A to Z have lower-case forms";
    EXPECT_EQ(OnDisk("0001/b.bin"), every);
}
