// Whole runs over small sites: what becomes of pages, files, counts and records.
#include "SiteRun.h"
#include "core/FileHandle.h"
#include "core/Utils.h"
#include "engine/PageText.h"
#include "engine/RouteNav.h"
#include "engine/do_the_file.h"
#include "toolkit/Gates.h"

namespace
{
struct Run : SiteRun {
    // Treats one page of the site's root, or of theDir.
    void Treat(const Text &thePage, const Text &theDir = "")
    {
        Put("" + ReplaceText(theDir, "\\", "/") + "the page.htm", thePage);
        TakePage("x:\\" + theDir);
        do_the_file("the page.htm");
    }
};
}  // namespace

TEST_F(Run, LinksComeOutAsTheyWereWritten)
{
    Put("page.htm");
    Put("sub/page.htm");
    const std::vector<std::pair<Text, Text>> ways = {
        {"<A HREF=\"page.htm\">Go</A> Now", "<a href=\"NEW.htm\">go</a> now"},
        {"<a href='page.htm'>go</a>", "<a href='NEW.htm'>>go</a>"},
        {"<a href=page.htm >go</a>", "<a href=NEW.htm >>go</a>"},
        {"<a href=\"sub/page.htm\">go", "<a href=\"sub/NEW.htm\">go"},
        {"<a href=\"/page.htm\">go", "<a href=\"NEW.htm\">go"},
        {"<a href=\"/sub/page.htm\">go", "<a href=\"sub/NEW.htm\">go"},
        {"<a href=\"\\page.htm\">go", "<a href=\"site.test\\NEW.htm\">go"},
        {"<a href=\"http://www.site.test/page.htm\">go", "<a href=\"http://www.site.test/NEW.htm\">go"},
        {"<a href=\"site.test/page.htm\">go", "<a href=\"NEW.htm\">go"},
        {"<a href=\"page.htm#top\">go", "<a href=\"NEW.htm#top\">go"},
        {"No link: SRC=\"site.test\\A.gif\" \"/imgs/B.gif\">>", "no link: src=\"a.gif\" \"imgs/b.gif\">"},
        {"<a href=\"page.htm\">one</a> lost <a href=\"http://o.example\">two</a>", "<a href=\"NEW.htm\">two</a>"},
        {"<p>a<a href=\"page.htm\">b</a>c<a href=\"page.htm\">d",
            "<p>a<a href=\"NEW.htm\">b</a>c<a href=\"NEW.htm\">d"},
        {"<p>kept not <a href=\"gone.htm\">b</a>", ">b</a>"},
    };
    for (const auto &[before, after] : ways) {
        Treat(before);
        EXPECT_EQ(NewPage("the page.htm"), after + "\r\n") << before;
    }
    Treat("<a href=\"../page.htm\">up", "sub\\");
    EXPECT_EQ(NewPage("sub/the page.htm"), "<a href=\"../NEW.htm\">up\r\n");
    EXPECT_EQ(OnDisk("site on x/sub/the page.htm"), "<a href=\"../page.htm\">up") << "the site stays as it was";
    EXPECT_EQ(Files::FilesIn("x:\\")->size(), 2u);
}

TEST_F(Run, CountsAndRecordsFollowEachLink)
{
    Put("page.htm");
    Put("pic.gif");
    frmLists::lstKeywords.SetRows({"moss", "fern"});
    KeywordsPerFilename = 2;
    Treat(
        "<a href=\"../up.htm\"><a href = \"page.htm\"><a href=\"/page.htm\"><a href=\"page.htm\"><a href=\"gone.htm\">"
        "<a href=\"HTTP://o.example\"><a href=\"pic.gif\"><a href=\"mailto:x.y\">");
    const std::vector<std::pair<Label *, Text>> counts = {{&frmProcess::lblFilesCnt, "1"},
        {&frmProcess::lblPagesAdded, "2"}, {&frmProcess::lblKeywordsAdded, "8"},
        {&frmProcess::lblLinksInternalCnt, "2"}, {&frmProcess::lblLinksExternalCnt, "1"},
        {&frmProcess::lblLinksBrokenCnt, "3"}, {&frmProcess::lblLinksMedia, "1"}};
    for (const auto &[label, count] : counts)
        EXPECT_EQ(label->Caption, count) << label->Name;
    EXPECT_EQ(frmLists::lstMediaLinksCnt.Rows(), (std::vector<Text>{"1", "0"})) << "always the first row";
    const Text page = "x:\\the page.htm[]\r\n";
    EXPECT_EQ(Files::Read(InStoreDir("BrokenLinksFiles.sav")), page + page + page);
    EXPECT_EQ(Files::Read(InStoreDir("BrokenLinksLinks.sav")),
        "<a href=\"../up.htm\">[]\r\n<a href=\"page.htm\">[]\r\n<a href=\"gone.htm\">[]\r\n")
        << "the link above the root took the plain one behind it along";
    EXPECT_EQ(Files::Read(InStoreDir("ExternalLinksLinks.sav")), "<a href=\"http://o.example\">[]\r\n");
}

TEST_F(Run, WalksTheSiteAndFillsTheProject)
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
    EXPECT_TRUE(ReportFinished && front.Failures.empty());
    EXPECT_FALSE(frmProcess::Me.Loaded);
}

TEST_F(Run, CancelEndsAPauseAndTheWalk)
{
    for (const char *name : {"a.htm", "b.htm", "c/d.htm"})
        Put(name, "<p>");
    front.AtYield = [] {
        const int yields = static_cast<TestFront &>(ThePresentation()).Yields;
        if (yields == 3)
            Click(frmProcess::Me, "btnPause");
        if (yields == 9) {
            EXPECT_TRUE(The<Image>(frmProcess::Me, "btnResume").Visible);
            EXPECT_FALSE(Click(frmProcess::Me, "btnPause") || UserClose(frmProcess::Me));
            Click(frmProcess::Me, "btnCancel");
        }
    };
    RunSite();
    EXPECT_EQ(NewFiles(""), "a.htm") << "the page in hand is given up";
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "c"));
    EXPECT_TRUE(ReportFinished) << "a cancelled run gets its report all the same";
}

TEST_F(Run, OptionsAreReadAfreshDuringTheRun)
{
    Put("A.gif", "GIF");
    Put("b.htm", "<P>");
    Put("c/d.htm", "<P>");
    frmProcess::Me.Show();
    Click(frmProcess::Me, "optSubdirs");
    Click(frmProcess::Me, "optUseFilters");
    TimerTick(The<Timer>(frmProcess::Me, "Timer1"));
    EXPECT_EQ(OnDisk("0001/A.gif"), "gif\r\n\r\n") << "treated as a page, and as one by the route pass";
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "c"));
}

TEST_F(Run, FailuresThatNothingTrapsEndTheProgram)
{
    Put("a.htm", "<a href=\"a.htm\"onclick=\"href='a.htm'\">");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u) << "two good links share one tag: the piece between them is negative";
    EXPECT_EQ(front.Code, endFailure);
    EXPECT_EQ(NewFiles(""), "NEW.htm NEW.htm") << "what was made stays, the page in hand isn't written";
    EXPECT_EQ(OnDisk("0001_store/report.html"), "(none)");
}

TEST_F(Run, TheSiteIsNeverItsOwnNewSite)
{
    PutAt(program / "0001" / "a.htm", "KEPT");
    Paths::MapDrive('x', (program / "0001").string());
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    EXPECT_EQ(OnDisk("0001/a.htm"), "KEPT");
}

TEST_F(Run, RoutingKeepsAFileThatCannotBeRead)
{
    PutAt(program / "0001" / "a" / "b.htm", "<IMG SRC=\"site.test/X\"><A HREF=\"/\"><A HREF='/x'>\"/IMGS/y\">>");
    TakePage(InProgramDir("0001"));
    RouteNav();
    EXPECT_EQ(OnDisk("0001/a/b.htm"), "<img src=\"../x\"><a href=\"../\"><a href='/x'>\"../imgs/y\">>\r\n");
    std::filesystem::create_directory(program / "0001" / "c.htm");
    RouteTheFile(InProgramDir("0001\\c.htm"));
    EXPECT_EQ(front.Boxes.size(), 0u) << "in silence";
}

TEST_F(Run, BytesPassThroughUnchanged)
{
    Text every;
    for (int c = 1; c < 256; ++c)
        every += static_cast<char>(c);
    Put("a.htm", every);
    Put("b.bin", every);
    RunSite();
    EXPECT_EQ(OnDisk("0001/a.htm"), LowerText(every) + "\r\n\r\n") << "A to Z alone have small letters";
    EXPECT_EQ(OnDisk("0001/b.bin"), every);
}

TEST_F(Run, ASecondRunInTheSameProject)
{
    Put("a.htm", "<a href=\"a.htm\">A</a><a href=\"gone.htm\">B</a>");
    RunSite();
    const Text records = OnDisk("0001_store/BrokenLinksLinks.sav");
    ReportFinished = false;
    UsingQuillmark = true;
    PutAt(program / "dictionary.lst", "river\r\nstone\r\n");
    KeywordsPerFilename = 1;
    RunSite();
    EXPECT_EQ(OnDisk("0001_store/BrokenLinksLinks.sav"), records) << "of the last run alone";
    EXPECT_TRUE(std::regex_search(NewFiles(""), std::regex("NEW-(river|stone)\\.htm"))) << NewFiles("");
    EXPECT_EQ(FilesProcessedCnt, 1);

    CancelRequested = true;
    RunSite();
    EXPECT_EQ(FilesProcessedCnt, 0) << "a cancel is never taken back";
    EXPECT_TRUE(front.Failures.empty());
}

TEST_F(Run, ADirectoryOfTooManyFilesFailsBeforeItsFirst)
{
    std::filesystem::create_directories(site / "many");
    for (int i = 0; i < 32768; ++i)
        std::ofstream(site / "many" / std::to_string(i));
    Put("a.txt", "treated");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    EXPECT_EQ(OnDisk("0001/a.txt"), "treated");
    EXPECT_FALSE(std::filesystem::exists(program / "0001" / "many"));
}

TEST_F(Run, ALinkIntoItsOwnProjectStopsTheWalk)
{
    Put("a/b.htm", "<p>");
    std::filesystem::create_directory_symlink(program / "0001", site / "z");
    RunSite();
    ASSERT_EQ(front.Failures.size(), 1u);
    EXPECT_EQ(front.Failures[0].Where, "x:\\z");
    EXPECT_EQ(OnDisk("0001/a/b.htm"), "<p>\r\n");
}

// The one pass gives what the five replacements give one after the other.
TEST_F(Run, OnePassEqualsFiveReplacements)
{
    const auto inTurn = [](Text thePage, const std::vector<std::pair<Text, Text>> &thePairs) {
        for (const auto &[find, replace] : thePairs)
            thePage = ReplaceText(LowerText(thePage), find, replace);
        return LowerText(thePage);
    };
    std::minstd_rand random(7);
    for (const Text domain : {"site.test", "", "imgs", "s/x", "href=\"", "..", "Site"}) {
        DomainName = domain;
        const std::vector<Text> pieces = {"\"", "src=", "href=", "SRC=\"", "href=\"", domain, "/", "\\", "/imgs",
            "imgs", ">", ">>", "\">>", "../", "a", "\"/", domain + "/", domain + "\\"};
        for (int round = 0; round < 3000; ++round) {
            Text page;
            for (unsigned i = 0; i < 3 + random() % 12; ++i)
                page += pieces[random() % pieces.size()];
            for (const Text prefix : {"", "../", "../../"}) {
                const std::vector<std::pair<Text, Text>> common = {{"src=\"" + domain + "\\", "src=\"" + prefix},
                    {"src=\"" + domain + "/", "src=\"" + prefix}, {"href=\"" + domain + "/", "href=\"" + prefix}};
                auto expanded = common, routed = common;
                expanded.insert(expanded.end(), {{"\"/imgs", "\"" + prefix + "imgs"}, {"\">>", "\">"}});
                routed.insert(routed.end(), {{"href=\"/", "href=\"" + prefix}, {"\"/imgs", "\"" + prefix + "imgs"}});
                ASSERT_EQ(RelinkExpandedPage(page, prefix), inTurn(page, expanded)) << domain << ": " << page;
                ASSERT_EQ(RelinkRoutedPage(page, prefix), inTurn(page, routed)) << domain << ": " << page;
            }
        }
    }
}
