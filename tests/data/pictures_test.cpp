// The pictures and templates shipped beside the program: all there, and as large as screens and pages take them to be.

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>

static std::string readData(const std::string &name)
{
    std::ifstream in(std::string(FERNCASTLE_DATA_DIR) + "/" + name, std::ios::binary);
    EXPECT_TRUE(in.good()) << name << " is missing";
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

static std::size_t word(const std::string &b, std::size_t at)
{
    return at + 2 > b.size() ? 0 : static_cast<unsigned char>(b[at]) * 256U + static_cast<unsigned char>(b[at + 1]);
}

using Size = std::pair<std::size_t, std::size_t>;

// Width and height out of a PNG's header or a JPEG's first frame segment; zeros for anything else.
static Size pixels(const std::string &b)
{
    if (b.starts_with("\x89PNG\r\n\x1a\n") && b.find("IHDR") == 12)
        return {word(b, 18), word(b, 22)};
    for (std::size_t at = 2; word(b, 0) == 0xFFD8 && word(b, at) > 0xFF00; at += 2 + word(b, at + 2))
        if (word(b, at) >= 0xFFC0 && word(b, at) <= 0xFFC2)
            return {word(b, at + 7), word(b, at + 5)};
    return {};
}

static std::size_t countOf(const std::string &text, const std::string &part)
{
    const auto at = text.find(part);
    return at == std::string::npos ? 0 : 1 + countOf(text.substr(at + 1), part);
}

TEST(Pictures, AreAllThereInTheirSizes)
{
    // A width and a height hold for all the names behind them.
    std::istringstream screens("302 447 bg_splash 600 435 bg_main01 bg_load 160 435 bg_help01 22 22 btnHelp "
                               "420 96 title 260 40 title_sm 100 84 mnuFerncastle mnuFAQ mnuContact 176 176 logoAbout "
                               "248 176 optCreate optLoad 92 34 btnNext btnBack btnDone btnClose 138 32 btnAddKeyword "
                               "116 32 btnAddFilter 92 32 btnLoad btnClear btnReset 96 32 btnRemove 188 36 btnExpand "
                               "104 34 btnPause btnResume btnCancel btnReport 268 110 btnDoItAlready "
                               "32 32 chkbox01 chkbox02 chkbox03 chkbox04 chkbox05 chkboxDone");
    std::size_t w = 0, h = 0;
    for (std::string name; screens >> name;) {
        if (name.front() <= '9') {
            w = std::stoul(name);
            screens >> h >> name;
        }
        EXPECT_EQ(pixels(readData("imgs/" + name + ".jpg")), Size(w, h)) << name;
        EXPECT_EQ(pixels(readData("imgs/" + name + "@2x.jpg")), Size(2 * w, 2 * h)) << name;
    }
    for (const std::size_t side : {16u, 24u, 32u, 48u, 64u, 128u, 256u})
        EXPECT_EQ(pixels(readData("icons/ferncastle-" + std::to_string(side) + ".png")), Size(side, side));
    EXPECT_EQ(pixels(readData("imgs/bg_report01.jpg")), Size(1600, 240));
    EXPECT_EQ(pixels(readData("imgs/report_title01.png")), Size(880, 128));
    EXPECT_EQ(pixels(readData("imgs/title_project_details.png")), Size(640, 56));
    EXPECT_EQ(pixels(readData("imgs/title_exp_summary.png")), Size(640, 56));
}

TEST(Pictures, TemplatesHoldTheirMarkers)
{
    std::istringstream markers(
        "report_template.html <*thebackground*> <*report_title*> <*reportdetails_title*> <*expdetails_title*> "
        "<!--lblProjectName--> <!--lblDomainName--> <!--lblLocalSite--> <!--lblNewSite--> <!--lblFilesProcessedCnt--> "
        "<!--lblPagesAddedCnt--> <!--lblKeywordsAddedCntHalf--> <!--lblKeywordsAddedCnt--> <!--lblMediaFilesCnt--> "
        "<!--lblLinksInternalCnt--> <!--lblLinksExternalCnt--> <!--lblLinksBrokenCnt--> <!--lblLinksMediaCnt--> "
        "<!--LinksBrokenDetails--> <!--LinksExternalDetails--> <!--MediaDetails--> "
        "report_linksexternal_template.html <!--|||***ExternalLinks***|||--> "
        "report_linksbroken_template.html <!--|||***BrokenLinks***|||--> "
        "report_media_template.html <!--|||***MediaContent***|||--> share/support.html <*why*>");
    std::string page;
    for (std::string token; markers >> token;) {
        if (token.front() == '<') {
            const std::size_t n = countOf(page, token);
            EXPECT_TRUE(n == 1 || (n > 1 && token.find("|||") != 4)) << token << " stands there " << n << " times";
        } else {
            page = readData(token);
            for (const char c : page)
                EXPECT_TRUE((c >= ' ' && c <= '~') || c == '\n' || c == '\r') << token << " holds " << int{c};
            // From a project's store directory, "../" leads to the program directory.
            for (std::size_t at = 0; (at = page.find("=\"../", at)) != std::string::npos; ++at)
                EXPECT_NE(readData(page.substr(at + 5, page.find('"', at + 5) - at - 5)), "") << token << ' ' << at;
        }
    }
}
