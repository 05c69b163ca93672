// How a link is read, rebased, classified and resolved, as tables.
#include "SiteRun.h"
#include "core/Utils.h"
#include "engine/URLHandle.h"
#include "engine/temp.h"

using Links = LinkSite;

namespace
{
struct Outcome {
    Text Page, Link, Rebased;  // Rebased is "-" for a link that is not rebased
    int Kind;
    Text SubDir, File;  // File is "!" for a broken link
};
}  // namespace

TEST_F(Links, AreRebasedClassifiedAndResolved)
{
    const Text root = "x:\\web", deep = "x:\\web\\a\\b";
    const std::vector<Outcome> outcomes = {
        {root, "page.htm", "-", -1, "", "page.htm"},
        {root, "page.htm?x=1", "-", -1, "", "page.htm"},
        {root, "page.htm#top", "-", -1, "", "page.htm"},
        {root, "a/page.htm", "-", -1, "", "page.htm"},
        {root, "b/x.htm", "-", -1, "", "!"},
        {deep, "x.htm", "-", -1, "a\\b\\", "x.htm"},
        {root, "/a/page.htm", "site.test/a/page.htm", -1, "a\\", "page.htm"},
        {root, "/a/", "site.test/a/", -1, "a\\", "index.htm"},
        {root, "./page.htm", "site.test/web/page.htm", -1, "web\\", "!"},
        {deep, "../page.htm", "site.test/a/page.htm", -1, "a\\", "page.htm"},
        {deep, "../../page.htm", "site.test/page.htm", -1, "\\", "page.htm"},
        {deep, "../../../page.htm", "0", 0, "", ""},
        {root, ".", "/", -1, "", "index.htm"},
        {deep, ".", "/a/b/", -1, "a\\b\\", "!"},
        {root, "..", "", 0, "", ""},
        {root, "..\\x.htm", "0", 0, "", ""},
        {root, "http://site.test/page.htm", "-", -1, "\\", "page.htm"},
        {root, "http://www.site.test/a/page.htm?x=1#y", "-", -1, "a\\", "page.htm"},
        {root, "http://site.test/", "-", -1, "\\", "index.htm"},
        {root, "http://site.test", "-", -1, "", "!"},
        {root, "site.test/a/", "-", -1, "a\\", "index.htm"},
        {root, "a/", "-", 0, "", ""},
        {root, "http://other.example/x.htm", "-", 1, "", ""},
        {root, "my.examples.htm", "-", 1, "", ""},
        {root, "http://other.test/x.htm", "-", -1, "", "!"},
        {root, "mailto:a.example", "-", 0, "", ""},
        {root, "#top", "-", 0, "", ""},
        {root, "#a.b", "-", -1, "", "!"},
        {root, "http://other.example/?u=site.test", "-", 0, "", ""},
        {root, "", "-", 0, "", ""},
    };
    for (const Outcome &row : outcomes) {
        SCOPED_TRACE(row.Page + ": " + row.Link);
        const Text page = "<A  HREF = \"" + row.Link + "\">";
        TakePage(row.Page, page);
        const std::int64_t pos = FindText(1, LowerText(page), "href");
        Text tag = GetTagAtPos(pos), link = GetLinkAtPos(pos);
        EXPECT_EQ(tag, "<a  href=\"" + row.Link + "\">");
        EXPECT_EQ(link, row.Link);
        if (row.Rebased != "-") {
            EXPECT_EQ(RebaseDottedLink(link), row.Rebased);
            if (row.Rebased == "0")
                continue;
            tag = SwapLinkInTag(tag, row.Rebased, link);
            link = row.Rebased;
        }
        const Text backslashed = ReplaceText(link, "/", "\\");
        EXPECT_EQ(isLinkInternal(backslashed, tag), row.Kind);
        if (row.Kind != -1)
            continue;
        const bool isBroken = isLinkBroken(backslashed) == 2;
        EXPECT_EQ(isBroken, row.File == "!");
        EXPECT_EQ(LinkSubDir, row.SubDir);
        EXPECT_EQ(isBroken ? "!" : GetFileFromLink(link, 0, 1), row.File);
    }
    EXPECT_EQ(BrokenLinksTally, 1) << "the scan for the \".\" of a deeper page looked in x:\\weba\\b\\";
    EXPECT_EQ(frmProcess::lblLinksBrokenCnt.Caption, "1");
    EXPECT_EQ(front.Boxes.size(), 2u) << "for #a.b, which leaves nothing to scan";
}

TEST_F(Links, ValuesAreReadByPosition)
{
    const std::vector<std::pair<Text, Text>> values = {{"<a href='it''s'>", "it"}, {"<a href=ab c>", "ab"},
        {"<a href=a> b>", "a>"}, {"<a href = = x.htm >", "x.htm"}, {"<a href=\"never closed>", ""},
        {"<a href>text \"q\" >", ">text"}};
    for (const auto &[page, link] : values) {
        TakePage("x:\\web", page);
        EXPECT_EQ(GetLinkAtPos(4), link) << page;
    }
    EXPECT_EQ(GetLinkFromTag("<a class=b>"), "class=b") << "without href the reading starts at the fourth character";
    EXPECT_EQ(GetLinkFromTag("<a href=open"), "") << "the count of an unquoted value overflows";
    EXPECT_EQ(SwapLinkInTag("<a href=\"\">", "new", ""), "new<a href=\"\">");
    EXPECT_EQ(isLinkInternal("/a\\b", "<a>") + isLinkInternal("/a/b", "<a>"), -2);
    EXPECT_EQ(front.Boxes.size(), 1u) << "only for slashes of both kinds";
    EXPECT_EQ(StripSiteHead("http://http://site.test/", 1), "http://http://site.test/");
    EXPECT_EQ(StripSiteHead("http://www.a.b/?q#r", 0) + StripSiteHead("x?q", 1), "a.b/x?q");

    TakePage("x:\\web", "no tag around href='a'>");
    EXPECT_THROW(GetTagAtPos(FindText(1, frmLists::RichTextBox2.Text, "href")), RuntimeFailure);
    TakePage("x:\\web", "<a href=toTheEnd");
    EXPECT_THROW(GetLinkAtPos(4), ProgramEnd);
    EXPECT_TRUE(BeginsWith(front.Asked, "GetLinkAtPos"));
}
