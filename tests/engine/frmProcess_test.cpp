// How a run is paused, cancelled, ended by a failure and repeated.
#include "SiteRun.h"

using RunScreen = SiteRun;

TEST_F(RunScreen, CancelEndsAPauseAndTheWalk)
{
    for (const char *name : {"a.htm", "b.htm", "c/d.htm"})
        Put(name, "<p>");
    front.AtYield = [] {
        const int yields = static_cast<TestFront &>(ThePresentation()).Yields;
        if (yields == 3)
            Click(frmProcess::Me, "btnPause");
        if (yields == 9) {
            EXPECT_TRUE(The<Image>(frmProcess::Me, "btnResume").Visible);
            EXPECT_NONE(Click(frmProcess::Me, "btnPause"), UserClose(frmProcess::Me));
            Click(frmProcess::Me, "btnCancel");
        }
    };
    RunSite();
    EXPECT_EQ(NewFiles(""), "a.htm") << "the current page is abandoned";
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "c"));
    EXPECT_TRUE(ReportFinished) << "a cancelled run gets its report too";
}

TEST_F(RunScreen, FailuresThatNothingTrapsEndTheProgram)
{
    Put("a.htm", "<a href=\"a.htm\"onclick=\"href='a.htm'\">");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u) << "two internal links share one tag, so the count between them is negative";
    EXPECT_EQ(front.Code, endFailure);
    EXPECT_EQ(NewFiles(""), "NEW.htm NEW.htm") << "the new files stay, but the current page is not written";
    EXPECT_EQ(OnDisk("0001_store/report.html"), "(none)");
}

TEST_F(RunScreen, ASecondRunInTheSameProject)
{
    Put("a.htm", "<a href=\"a.htm\">A</a><a href=\"gone.htm\">B</a>");
    RunSite();
    const Text records = OnDisk("0001_store/BrokenLinksLinks.sav");
    ReportFinished = false;
    UsingQuillmark = true;
    PutAt(program / "dictionary.lst", "river\r\nstone\r\n");
    KeywordsPerFilename = 1;
    RunSite();
    EXPECT_EQ(OnDisk("0001_store/BrokenLinksLinks.sav"), records) << "only of the last run";
    EXPECT_TRUE(std::regex_search(NewFiles(""), std::regex("NEW-(river|stone)\\.htm"))) << NewFiles("");
    EXPECT_EQ(FilesProcessedCnt, 1);

    CancelRequested = true;
    RunSite();
    EXPECT_EQ(FilesProcessedCnt, 0) << "a cancel stays in effect";
    EXPECT_TRUE(front.Failures.empty());
}
