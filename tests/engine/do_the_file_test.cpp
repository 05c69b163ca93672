// What becomes of a single page, of its links and of the counts.
#include "SiteRun.h"
#include "core/FileHandle.h"
#include "core/Utils.h"
#include "engine/do_the_file.h"

namespace
{
struct Page : SiteRun {
    // Treats one page of the site's root, or of theDir.
    void Treat(const Text &thePage, const Text &theDir = "")
    {
        Put("" + ReplaceText(theDir, "\\", "/") + "the page.htm", thePage);
        TakePage("x:\\" + theDir);
        do_the_file("the page.htm");
    }
};
}  // namespace

TEST_F(Page, LinksComeOutAsTheyWereWritten)
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
    EXPECT_EQ(OnDisk("site on x/sub/the page.htm"), "<a href=\"../page.htm\">up") << "the site is not changed";
    EXPECT_EQ(Files::FilesIn("x:\\")->size(), 2u);
    do_the_file("gone.htm");
    EXPECT_EQ(front.Boxes, std::vector<Text>{"File \"gone.htm\" does not exist - do_the_file.ParseHTML"});
}

TEST_F(Page, CountsAndRecordsFollowEachLink)
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
        << "after a link above the root, a plain link counts as broken too";
    EXPECT_EQ(Files::Read(InStoreDir("ExternalLinksLinks.sav")), "<a href=\"http://o.example\">[]\r\n");
}
