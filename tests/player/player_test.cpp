// The player's language, its reading of pages, and its exit codes.
#include "TestSite.h"
#include "core/frmLists.h"
#include "disk/Claim.h"
#include "player/GivenVars.h"
#include "player/Json.h"
#include "player/PageReader.h"
#include "player/Player.h"

namespace fs = std::filesystem;
using Pairs = std::vector<std::pair<Text, Text>>;

// Plays scripts on a small site with the built program; each is a process of its own.
struct Playing : TestSite {
    int Play(const Text &theScript, const Text &theOption = "")
    {
        PutAt(program / "script.play", theScript);
        std::vector<Text> words = {fs::absolute(FERNCASTLE_PLAYER).string(), "--seed", "7", "--program-dir",
            HostForm(program), "--drive", "x=" + HostForm(site), HostForm(program / "script.play")};
        if (!theOption.empty())
            words.push_back(theOption);
        return RunCommand("", words, ">\"" + (program / "log").string() + "\" 2>&1");
    }
    // A run over the site, without the wizard.
    int PlayRun(const Text &theKeywords)
    {
        PutAt(program / "0001_store" / "0001.key", theKeywords);
        return Play("given ProjectNumber 0001\ngiven DomainName site.test\ngiven LocalSiteDir x:\\\n"
                    "given KeywordsPerFilename 2\nopen frmProcess\nwait frmReport");
    }
    bool Said(const Text &theText) const { return OnDisk("log").find(theText) != Text::npos; }
};

TEST_F(Playing, ScriptsAreReadLineByLine)
{
    std::istringstream script("# a comment\n\n   \t\n  # another\nclick\tfrmMenu.btnNext   # why\r\n"
                              "type frmCreate.txtProjName  My  Site #1 \nfile\nfile c:\\a b\\c.txt");
    Text read;
    for (const Action &action : ReadScript(script))
        read += std::to_string(action.Line) + action.Verb + "," + action.Target + "," + action.Rest + "," +
                action.All() + ";";
    EXPECT_EQ(read, "5click,frmMenu.btnNext,,frmMenu.btnNext;"
                    "6type,frmCreate.txtProjName,My  Site #1,frmCreate.txtProjName My  Site #1;"
                    "7file,,,;8file,c:\\a,b\\c.txt,c:\\a b\\c.txt;");
}

TEST_F(Playing, ElementsAndVariablesGoByName)
{
    for (const char *name : {"", "frmlists", "frmLists.", "frmLists.lstkeywords", "frmLists.lstKeywords.x"})
        EXPECT_EQ(FindElement(name), nullptr) << name;
    frmLists::lstKeywords.SetRows({"one", "two"});
    The<DirList>(*FindForm("frmDirectory"), "Dir1").NowPath = "x:\\a";
    The<CheckBox>(*FindForm("frmQuillmark"), "chkUsingQuillmark").Now.Ticked = true;
    The<Image>(*FindForm("frmQuillmark"), "btnNext").Now.Picture = "x:\\a\\b.jpg";
    for (const auto &[name, value] : Pairs{{"frmLists", "Lists"}, {"frmLists.lstKeywords", "one | two"},
             {"frmSplash.Timer1", "off"}, {"frmDirectory.Dir1", "x:\\a"}, {"frmQuillmark.chkUsingQuillmark", "ticked"},
             {"frmQuillmark.btnNext", "b.jpg"}, {"frmProcess.lblFilesCnt", "0"}})
        EXPECT_EQ(ValueOf(*FindElement(name)), value) << name;
    EXPECT_ALL(SetAppVar("ProjectNumber", "1 a"), SetAppVar("FormWidth", "2.5"), !SetAppVar("formwidth", "1"));
    EXPECT_ALL(ProjectNumber == "1 a", FormWidth == 2.5);
    EXPECT_ALL(SetAppVar("DevMode", "-1"), DevMode, SetAppVar("DevMode", "False"), !DevMode);
}

TEST_F(Playing, PagesAreRead)
{
    EXPECT_EQ(TitleOfPage("<TITLE>A b</Title><title>c</title>") + TitleOfPage("<title>open"), "A b");
    const Text page = "<a name=\"x\">Top</a><A class=\"c\" HREF=\"one.html\"><b>See </b>One</A>"
                      "<a href=\"two.html#x\">See One too</a><a href='no.html'>Quoted</a>";
    for (const auto &[words, address] :
        Pairs{{"see one", "one.html"}, {"ONE TOO", "two.html#x"}, {"top", ""}, {"quoted", ""}})
        EXPECT_EQ(AddressOfLink(page, words), address) << words;
    for (const auto &[link, address] : Pairs{{"b.html", "x:\\a\\b.html"}, {"../b.html#top", "x:\\b.html"},
             {"c/b.html?q", "x:\\a\\c\\b.html"}, {"http://o.example/p?q", "http://o.example/p"}, {"y:\\b", "y:\\b"}})
        EXPECT_EQ(AddressFrom("x:\\a\\page.html", link), address);
    EXPECT_EQ(TextOfPage("<head>no</head><h1>A &middot;  b</h1><!-- <p>no</p> --><script>no</script><td>c</td>\n<td>d"),
        "A - b\nc d");
}

TEST_F(Playing, EndsAreToldByTheirCodes)
{
    fs::copy(FERNCASTLE_DATA_DIR, program, fs::copy_options::recursive | fs::copy_options::skip_existing);
    const Text start = "wait frmWelcome\n";
    const std::vector<std::tuple<Text, int, Text>> rows = {{"", 0, "screen    frmSplash \"Ferncastle\""},
        {start + "close frmWelcome\n", 0, "ended"},
        {start + "\nexpect frmWelcome.chkHideWelcome ticked", endExpectation, "line 3: expect"},
        {start + "refuse frmWelcome.btnNext", endExpectation, "could click it"},
        {start + "holds domains.lst never in it", endExpectation, "it does not contain that"},
        {start + "size frmWelcome 1x435", endExpectation, "it is 600x435"},
        {start + "size frmWelcome.btnNext 92x1", endExpectation, "it is 92x34"},
        {start + "focused frmWelcome.chkHideWelcome", endExpectation, ""},
        {start + "said Are you sure", endExpectation, ""}, {start + "lacks domains.lst", endExpectation, "it exists"},
        {"click frmWelcome.btnNext", endScript, "no user could do that now"},
        {start + "open frmDoItAlready\nclick frmDoItAlready.btnHelp1", endScript, "it shows no picture"},
        {start + "click frmWelcome.btnNowhere", endScript, "there is no frmWelcome.btnNowhere"},
        {start + "dance frmWelcome.btnNext", endScript, "no such action"},
        {"given No 1", endScript, "no such variable"},
        {start + "wait frmReport", endScript, "line 2: wait frmReport: this never happens"}};
    for (const auto &[script, code, says] : rows)
        EXPECT_ALL(Play(script) == code, Said(says)) << script << "\n" << OnDisk("log");
    EXPECT_ALL(Play("", "--wrong") == endScript, Said("usage: ferncastle-play"));
    StartProject();
    Put("index.htm", "<a href=\"page.htm\">");
    Put("page.htm", "<p>");
    EXPECT_EQ(PlayRun("fern\r\nmoss\r\n"), 0) << OnDisk("log");
    EXPECT_ALL(PlayRun("fern\r\n") == endStandstill, Said("standstill MakeKeyworded")) << "two words of one";
    Put("page.htm", "<a href=\"page.htm\"onclick=\"href='page.htm'\">");
    EXPECT_ALL(PlayRun("fern\r\nmoss\r\n") == endFailure, Said("failure   negative count")) << "two links, one tag";
}

// What another process works in is told; a process that was killed leaves nothing behind.
TEST_F(Playing, AnotherProcessInTheSameDirectory)
{
    const Text place = HostForm(program), line = "another Ferncastle is already working in " + place;
    EXPECT_ALL(Play("") == 0, !Said(line)) << OnDisk("log");
    fs::permissions(program, fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_DEATH((Io::Claim(place), std::abort()), "");
    EXPECT_ALL(Io::Claim(place), !Io::Claim(place)) << "whoever claims it next is another";
    fs::permissions(program, fs::perms::owner_all);
    EXPECT_ALL(Play("") == 0, Said(line)) << OnDisk("log");
    EXPECT_ALL(Io::Claim(place + "/nowhere"));
}

// A text that is not wholly UTF-8 is taken for Latin-1.
TEST(Writing, JsonHoldsAnyBytes)
{
    for (const auto &[text, json] : Pairs{{"a\"\\/\x01\x7F", R"("a\"\\/\u0001\u007f")"}, {"\xC3\xA9", "\"\xC3\xA9\""},
             {"\xE9!", "\"\xC3\xA9!\""}, {"", "\"\""}})
        EXPECT_EQ(Json::String(text), json);
    for (const char *valid : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
             "\xF4\x8F\xBF\xBF", "\xE2\x82\xAC\xC3\xA9"})
        EXPECT_EQ(Json::String(valid), '"' + Text(valid) + '"');
    for (const char *wrong : {"\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80",
             "\xF5\x80\x80\x80", "\xE2\x82", "\xE2\x82!", "\xC3\xA9\x80", "\xF0\x90\x80!"})
        EXPECT_EQ(Json::String(wrong).size(), 2 * Text(wrong).size() + (Text(wrong).ends_with("!") ? 1 : 2)) << wrong;
}
