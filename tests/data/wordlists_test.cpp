// Checks the word lists that are shipped beside the program. All five are searched by plain text comparison, so one
// careless row (a country ending that occurs in ".htm", say) would spoil every run without any message.

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace
{

std::string readWhole(const std::string &name)
{
    std::ifstream in(std::string(FERNCASTLE_DATA_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(in.is_open()) << name;
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> readRows(const std::string &name)
{
    const std::string text = readWhole(name);
    std::vector<std::string> rows;
    std::size_t start = 0;
    for (std::size_t end = text.find("\r\n"); end != std::string::npos; end = text.find("\r\n", start)) {
        rows.push_back(text.substr(start, end - start));
        start = end + 2;
    }
    return rows;
}

/// The first row that occurs in the text; empty when none does.
std::string hittingRow(const std::vector<std::string> &rows, std::string_view text)
{
    const auto hit = std::find_if(
        rows.begin(), rows.end(), [&](const auto &row) { return text.find(row) != std::string_view::npos; });
    return hit == rows.end() ? std::string() : *hit;
}

}  // namespace

TEST(WordLists, EveryRowEndsInCrLfAndNoneIsEmptyOrRepeated)
{
    for (const std::string name :
        {"domains.lst", "LinkTrash.lst", "Indexes.lst", "MediaExtensions.lst", "dictionary.lst", "variables.sav"}) {
        const std::string text = readWhole(name);
        std::vector<std::string> rows = readRows(name);
        std::size_t bytes = 0;
        for (const std::string &row : rows) {
            bytes += row.size() + 2;
            EXPECT_FALSE(row.empty()) << name;
            EXPECT_TRUE(std::all_of(row.begin(), row.end(), [](char c) { return c >= ' ' && c <= '~'; }))
                << name << ": " << row;
        }
        EXPECT_FALSE(rows.empty()) << name;
        EXPECT_EQ(bytes, text.size()) << name << " has a line end other than CR LF";
        EXPECT_LE(rows.size(), 30001U) << name;
        std::erase(rows, "---");
        std::sort(rows.begin(), rows.end());
        EXPECT_EQ(std::adjacent_find(rows.begin(), rows.end()), rows.end()) << name;
    }
}

TEST(WordLists, NoDomainRowHitsALinkWithinTheSite)
{
    const std::vector<std::string> rows = readRows("domains.lst");
    for (const std::string stem : {"page", "a\\page", "page.en", "page.de", "page.fr", "page.it", "page.v2", "page-1.0",
             "contact.us", "read.me", "about.info", "page.mobile", "jquery.min"}) {
        for (const std::string ending : {"htm", "html", "shtml", "xhtml", "php", "php3", "asp", "aspx", "jsp", "cfm",
                 "cgi", "pl", "do", "xml", "txt", "md", "pdf", "doc", "docx", "xls", "ppt", "rtf", "ps", "ini", "css",
                 "js", "json", "py", "rs", "sh", "jpg", "jpeg", "gif", "png", "ico", "svg", "webp", "mp3", "mpg", "mov",
                 "avi", "mid", "swf", "zip", "rar", "tar", "gz", "exe", "msi", "ai", "psd", "in", "cc", "cs"}) {
            const std::string link = stem + "." + ending;
            EXPECT_EQ(hittingRow(rows, link), "") << link;
            EXPECT_EQ(hittingRow(rows, link + "?x=1#top"), "") << link;
        }
    }
    EXPECT_EQ(hittingRow(rows, "guestbook.pl\\view\\page.htm"), "");
    EXPECT_EQ(hittingRow(rows, "index.php\\page.htm"), "");
}

TEST(WordLists, LinksToOtherHostsAreKnown)
{
    const std::vector<std::string> rows = readRows("domains.lst");
    for (const std::string_view link : {"http:\\\\other.test\\x.htm", "https:\\\\other.test",
             "ftp:\\\\files.other.test\\x.zip", "http:\\\\192.0.2.7\\", "http:\\\\x.de", "www.other.test\\index.html",
             "other.com", "other.org\\index.html", "other.net\\a\\", "shop.co.uk", "other.co.jp\\index.htm",
             "uni.ac.at", "other.de\\x.htm", "other.jp\\x.htm", "other.info\\"}) {
        EXPECT_NE(hittingRow(rows, link), "") << link;
    }
}

TEST(WordLists, TrashRowsHitWhatIsNoPageLink)
{
    const std::vector<std::string> rows = readRows("LinkTrash.lst");
    for (const std::string_view tag :
        {"<a href=\"mailto:a@b.example\">", "<a class='x' href='tel:+1'>", "<a href=sms:1 >", "<a href=\"#sec.1\">",
            "<a href='#top'>", "<a href=#top >", "<a href=\"?page=1.5\">", "<a href=\"javascript:go('x.htm')\">",
            "<a href=\"data:text/html,x\">", "<base href=\"http://www.site.test/\">",
            "<link rel=\"stylesheet\" href=\"style.css\">", "<link href=main.css rel=stylesheet>",
            "<link rel='shortcut icon' href='favicon.ico'>", "<link rel=\"apple-touch-icon\" href=\"t.png\">",
            "<link rel=\"alternate\" hreflang=\"de\" href=\"de.htm\">", "<link rel=\"canonical\" href=\"x.htm\">",
            "<link rel=\"alternate stylesheet\" href=\"b.css\">", "<link href='feed.xml' type='application/rss+xml'>",
            "<link rel=\"manifest\" href=\"site.json\">", "<link rel='dns-prefetch' href='//cdn.test'>",
            "<script>location.href=\"a.htm\";</script>", "<a href=\"a.htm\" onclick=\"top.location.href='b.htm'\">"}) {
        EXPECT_NE(hittingRow(rows, tag), "") << tag;
    }
}

TEST(WordLists, TrashRowsLeaveOrdinaryLinksAlone)
{
    const std::vector<std::string> rows = readRows("LinkTrash.lst");
    for (const std::string_view tag :
        {"<a href=\"page.htm\">", "<a href='page.htm#top'>", "<a href=page.htm >", "<a href=\"page.htm?x=1\">",
            "<a href=\"/a/\">", "<a href=\".\">", "<a href=\"http://www.site.test/a.htm\">", "<a href=\"feed.htm\">",
            "<a href=\"mailto.htm\">", "<a href=\"javascript.html\">", "<a href=\"stylesheet.htm\" class=\"icon\">",
            "<a href=\"page.htm\" onclick=\"javascript:return open(this.href)\">",
            "<a rel=\"nofollow\" href=\"page.htm\">", "<a rel=\"alternate\" href=\"de.htm\">",
            "<area shape=\"rect\" href=\"page.htm\">", "<a href=\"page.htm\" title=\"data: see the news: page\">",
            "<link rel=\"next\" href=\"page.htm\">", "<link rel=contents href=index.htm >"}) {
        EXPECT_EQ(hittingRow(rows, tag), "") << tag;
    }
}

TEST(WordLists, MediaRowsAreThreeCharactersAndNoPage)
{
    const std::vector<std::string> rows = readRows("MediaExtensions.lst");
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(rows.front(), "jpg");
    EXPECT_NE(rows.back(), "---");
    for (const std::string &row : rows) {
        EXPECT_EQ(row.size(), 3U) << row;
        EXPECT_TRUE(row == "---" || row.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789") == std::string::npos)
            << row;
    }
    for (const std::string_view page : {"htm", "tml", "asp", "php", "jsp", "cfm", "cgi", "spx"})
        EXPECT_EQ(std::count(rows.begin(), rows.end(), page), 0) << page;
}

TEST(WordLists, DictionaryIsSortedPlainWords)
{
    const std::vector<std::string> rows = readRows("dictionary.lst");
    EXPECT_GE(rows.size(), 3000U);
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
    for (const std::string &row : rows)
        EXPECT_TRUE(row.size() >= 4 && row.size() <= 9 &&
                    row.find_first_not_of("abcdefghijklmnopqrstuvwxyz") == std::string::npos)
            << row;
}

TEST(WordLists, AFreshInstallationFindsItsIndexNamesAndWelcome)
{
    EXPECT_EQ(readRows("Indexes.lst").at(0), "index.html");
    EXPECT_EQ(readWhole("variables.sav"), "|||ShowWelcome|||-1\r\n");
}
