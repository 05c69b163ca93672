// The records of links read back: positions, groups, rows; and the test for media links.
#include "core/AppVars.h"
#include "core/frmLists.h"
#include "report/Records.h"
#include <gtest/gtest.h>

namespace
{
// There are no record files here, so the rows are made from what the boxes hold.
Text Tabulated(const Text &theFiles, const Text &theLinks)
{
    frmLists::rtbReportTemp = std::make_shared<const Text>(theFiles);
    frmLists::rtbReportTemp2 = std::make_shared<const Text>(theLinks);
    Text Result;
    TabulateLinks("External")([&](const Text &row) { Result += row; });
    return Result;
}

Text PageRow(const Text &thePage)
{
    return "  <TR>\r\n    <TD>\r\n      " + thePage + "\r\n    </TD>\r\n  </TR>\r\n";
}
const Text spacer = "<TR><TD>&nbsp;</TD></TR>\r\n";
Text LinkRow(const Text &theTag)
{
    return PageRow("&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;" + theTag + "\r\n");
}
}  // namespace

TEST(Records, APageStandsOnceWithItsTagsUnderIt)
{
    EXPECT_EQ(Tabulated("x:\\a&b.htm[]\r\nx:\\a&b.htm[]\r\nx:\\A&b.htm[]\r\n",
                  "<a href=\"1&2\">[]\r\n<a\r\nhref='x'>[]\r\n<b>[]\r\n"),
        PageRow("x:\\a&b.htm") + LinkRow("&lt;a href=&quot;1&2&quot;&gt;") +
            LinkRow("&lt;a\r\nhref=&acute;x&acute;&gt;") + spacer + PageRow("x:\\A&b.htm") + LinkRow("&lt;b&gt;"));
    EXPECT_EQ(Tabulated("", "<a>[]\r\n"), "");
}

TEST(Records, AMarkerInATagPutsTheRestOutOfStep)
{
    EXPECT_EQ(Tabulated("p[]\r\np[]\r\n", "<a t=[]12 href=x>[]\r\n<lost>[]\r\n"),
        PageRow("p") + LinkRow("&lt;a t=") + LinkRow(" href=x&gt;"));
    EXPECT_EQ(Tabulated("p[]\r\nq[]\r\n", "<a>[]\r\n<cut off"),
        PageRow("p") + LinkRow("&lt;a&gt;") + spacer + PageRow("q") + LinkRow(""));
}

TEST(Records, AGroupBeyondSixteenBitsLosesItsCount)
{
    Text files, links;
    for (int i = 0; i < 32768; ++i) {
        files += "p[]\r\n";
        links += std::to_string(i) + "[]\r\n";
    }
    std::int32_t pos = 1;
    EXPECT_EQ(GetRepeatingLines(pos, files, "P"), 0);
    EXPECT_EQ(pos, 1);
    EXPECT_EQ(GetRepeatingLines(pos, files, "p"), 0);
    EXPECT_EQ(pos, 1 + 32767 * 5);
    pos = 6;
    EXPECT_EQ(GetRepeatingLines(pos, files, "p"), 32767);
    EXPECT_EQ(Tabulated(files, links), PageRow("p") + spacer + PageRow("p") + LinkRow("0"));
}

TEST(Records, TheExtensionIsCountedInTheLinkAndTakenFromTheFile)
{
    DomainName = "site.test";
    frmLists::lstMediaExtensions.SetRows({"---", "gif", "ZIP", "tar"});
    // Without a dot the extension is the whole file part; "?v=1.abc" has as many letters after its dot as the file.
    for (const char *link : {"pic.gif", "imgs/pic.gif", "imgs\\pic.gif", "a.ZIP", "gif", "pic.gif?v=1.abc"})
        EXPECT_EQ(isLinkMedia(link), 3) << link;
    for (const char *link : {"pic.gif?v=2", "pic.gif#top", "PIC.GIF", "a.zip", "a.gif.htm", "a.htm?.tar", "agif", ""})
        EXPECT_EQ(isLinkMedia(link), -1) << link;
}
