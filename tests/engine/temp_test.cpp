// How new pages get their names, their links and their files.
#include "SiteRun.h"
#include "core/FileHandle.h"
#include "engine/temp.h"

using NewPages = LinkSite;

TEST_F(NewPages, NewNamesTakeThePlaceOfTheFile)
{
    DomainName = "Site.Test";
    const std::vector<std::pair<Text, Text>> tags = {
        {"<a href=\"a/page.htm\">", "<a href=\"a/NEW.htm\">"},
        {"<a href=\"page.htm?x=1\">", "<a href=\"NEW.htm?x=1\">"},
        {"<a href=\"PAGE.HTM#top\" title=\"a\\b\">", "<a href=\"NEW.htm#top\" title=\"a\\b\">"},
        {"<a href=\"/page.htm\" title=\"a\\b\">", "<a href=\"/NEW.htm\" title=\"a/b\">"},
        {"<a href=\"a/\">", ""},
        {"<a href=\"site.test\">", ""},
        {"<a href=\"a/?a=1&b=12345\">", "<a href=\"a/NEW.htm2345\">"},
        {"<a href=\"other\">", ""},
    };
    for (const auto &[before, after] : tags)
        EXPECT_EQ(InsertFilenameIntoLink("page.htm", "NEW.htm", before), after) << before;
    EXPECT_EQ(front.Boxes.size(), 1u) << "only the last row shows a message";
}

TEST_F(NewPages, NamesAreMadeOfNumberWordsAndExtension)
{
    frmLists::lstKeywords.SetRows({"rate", "rates", "Low Rate", "fern"});
    KeywordsPerFilename = 2;
    for (int i = 0; i < 200; ++i) {
        const Text name = MakeKeywordedFileName("a.b.html");
        EXPECT_TRUE(std::regex_match(name, std::regex("[0-9]{6}(-(rate|rates|Low Rate|fern)){2}\\.html"))) << name;
        EXPECT_NONE(Contains(name, "rates-rate"), Contains(name, "Low Rate-rate.")) << name;
    }
    EXPECT_TRUE(std::regex_match(MakeKeywordedFileName("readme"), std::regex("[0-9]{6}(-[A-Za-z ]+){2}readme")));
    KeywordsPerFilename = 9;
    frmLists::lstKeywords.SetRows({"one", "two", "three", "four", "five"});
    MakeKeywordedFileName("a.htm");
    EXPECT_EQ(KeywordsPerFilename, 5) << "the short name lowers it for good";
    frmLists::lstKeywords.SetRows({"one", "two", "one"});
    EXPECT_THROW(MakeKeywordedFileName("a.htm"), ProgramEnd);
    EXPECT_TRUE(BeginsWith(front.Asked, "MakeKeywordedFileName"));

    PutAt(program / "dictionary.lst", "fern\r\nmoss\r\nOne\r\n");
    UsingQuillmark = true;
    KeywordsPerFilename = 2;
    frmLists::lstKeywords.SetRows({"FERN", "one"});
    const Text name = MakeKeywordedFileName("page.htm");
    EXPECT_ALL(Contains(name, "-moss"), Contains(name, "-One"), !Contains(name, "fern"))
        << "the word itself is not lower-cased";
}

TEST_F(NewPages, CopiesStayInTheSiteAndTheProject)
{
    Put("secret.htm", "outside");
    Put("web/secret.htm", "inside");
    TakePage("x:\\web");
    EXPECT_EQ(CreateNewlyKeywordedFile("http://site.test/../secret.htm", "1.htm", "secret.htm"), 1);
    EXPECT_EQ(BrokenLinksTally, 1);
    EXPECT_EQ(CreateNewlyKeywordedFile("secret.htm", "../../stolen.htm", "secret.htm"), 1);
    EXPECT_EQ(CreateNewlyKeywordedFile("site.test/a/page.htm", "1.htm", "page.htm"), 0);
    PendingWrites::Flush();
    EXPECT_EQ(OnDisk("0001/a/1.htm"), "<html>");
    EXPECT_EQ(OnDisk("stolen.htm") + OnDisk("0001/1.htm"), "(none)(none)");

    FileNameNumber = "000001";
    PutAt(program / "0001" / "000001.htm", "taken");
    EXPECT_EQ(CreateNewlyKeywordedFile("page.htm", "000001.htm", "page.htm"), 0) << "another number is drawn";
    EXPECT_EQ(OnDisk("0001/000001.htm"), "taken");
    EXPECT_EQ(NewFiles(""), "NEW.htm NEW.htm");
    EXPECT_EQ(NewNumberInFileName("no number"), "");
}
