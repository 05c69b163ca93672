// Plays a run over a site of hostile names and links while a library notes each call that would write; see
// preload/faults.cpp. It guards that no call names a place outside the program directory, and that nothing there
// changes.
#ifdef FERNCASTLE_FAULTS
#include "PlayedProgram.h"
#include <algorithm>
#include <map>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
// All files below theTop, with what a write would change. The program may give up its own names of the one in
// "planted".
Text FactsOf(const fs::path &theTop)
{
    Text Result;
    for (const auto &entry : fs::recursive_directory_iterator(theTop)) {
        struct stat facts = {};
        lstat(entry.path().c_str(), &facts);
        std::ostringstream content;
        if (S_ISREG(facts.st_mode))
            content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
        if (entry.path().parent_path().filename() == "planted")
            facts.st_nlink = facts.st_ctim.tv_sec = facts.st_ctim.tv_nsec = 0;
        for (const std::int64_t fact : {std::int64_t(facts.st_mode), std::int64_t(facts.st_nlink),
                 std::int64_t(facts.st_ino), std::int64_t(facts.st_mtim.tv_sec), std::int64_t(facts.st_mtim.tv_nsec),
                 std::int64_t(facts.st_ctim.tv_sec), std::int64_t(facts.st_ctim.tv_nsec)})
            Result += std::to_string(fact) + ' ';
        Result += entry.path().string() + ' ' + content.str() + '\n';
    }
    return Result;
}
}  // namespace

TEST(Confinement, NoLinkOrNameLeadsAWriteOutside)
{
    PlayedProgram program;
    const fs::path top = fs::canonical(program.directory).string() + " outside", site = top / "site";
    const Text letters(251, 'n'), siteOnC = "c:" + ReplaceText(site.string(), "/", "\\");
    const Text outside = (top / "out/page.htm").string(), programDir = program.directory.string();
    for (const char *file : {"page.htm", "d/page.htm", "x.htm", "X.htm", "D/x.htm", "d/e/x.htm", "a\rb\n.htm",
             "\1\x7f.htm", "..\\out\\page.htm", "c:\\page.htm", "c:", "%2e%2e.htm", "...htm", "nul.htm", "p.gif",
             "notes/p.gif", "a b/'x'.htm"})
        TestSite::PutAt(site / file, "<a href=\"x.htm\">");
    TestSite::PutAt(site / (letters + ".htm"), "long");
    TestSite::PutAt(outside, "outside");
    TestSite::PutAt(top / "out.htm", "outside");
    TestSite::PutAt(top / "planted/x", "planted");
    fs::create_directory_symlink("..", site / "up");
    fs::create_directory_symlink(top / "out", site / "away");
    fs::create_symlink("../out/page.htm", site / "link.htm");
    fs::create_symlink("loop.htm", site / "loop.htm");
    fs::create_hard_link(outside, site / "hard.htm");
    fs::path deep = site;
    while (deep.string().size() + 201 < 4000)
        deep /= Text(200, 'd');
    TestSite::PutAt(deep / "x.htm", "deep");
    ASSERT_EQ(mkfifo((site / "pipe.htm").c_str(), 0600), 0);
    sockaddr_un address = {AF_UNIX, {}};
    (site / "s.htm").string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int handle = socket(AF_UNIX, SOCK_STREAM, 0);
    EXPECT_EQ(bind(handle, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    // What somebody has planted in the project.
    for (const char *directory : {"0001/d", "0001_store"})
        fs::create_directories(program.directory / directory);
    fs::create_directory_symlink(top / "out", program.directory / "0001/notes");
    fs::create_hard_link(top / "planted/x", program.directory / "0001/d/page.htm");
    fs::create_hard_link(top / "planted/x", program.directory / "0001_store/BrokenLinksFiles.sav");
    fs::create_symlink(outside, program.directory / "0001_store/BrokenLinksLinks.sav");
    fs::create_symlink(outside, program.directory / "0001_store/report.html");
    TestSite::PutAt(program.directory / "0001_store/0001.key", "fern\r\nmoss\r\n");

    Text page;
    const Text climb = "../../../../../../..", longPath(2040, 'y');
    for (const Text &link : std::vector<Text>{"x.htm", "X.HTM", "D/x.htm", "d/X.htm", "up/out/page.htm",
             "up/up/out/page.htm", "away/page.htm", "link.htm", "loop.htm", "hard.htm", "pipe.htm", "s.htm",
             "../out/page.htm", "..\\out\\page.htm", "./../out/page.htm", "d/../../out/page.htm",
             "d/..\\..\\out/page.htm", "/../out/page.htm", "//../out/page.htm", "\\..\\out\\page.htm",
             "....//out/page.htm", "..;/out/page.htm", "%2e%2e/out/page.htm", "..%2fout%2fpage.htm",
             "..%5cout%5cpage.htm", "%c0%ae%c0%ae/out/page.htm", ".. /out/page.htm", "../out/page.htm?x#y",
             "../out#/page.htm", "gone/../../out/page.htm", climb + outside, outside, "/" + outside, "c:" + outside,
             "C:\\page.htm", "x.htm:stream", "c:page.htm", "file://" + outside, "\\\\host\\share\\page.htm",
             "\\\\?\\c:" + outside, "nul.htm", "con", "a\rb\n.htm", "\1\x7f.htm", "a b/'x'.htm", letters + ".htm",
             longPath + "/" + longPath + "/x.htm", deep.string().substr(site.string().size() + 1) + "/x.htm",
             "../" + programDir + "/variables.sav", programDir + "/imgs/next.jpg"})
        for (const char *before : {"", "http://site.test/", "site.test/", "site.test\\", "http://www.site.test/d/../"})
            page += "<a href=\"" + (before + link) + "\"></a>\n<a href=" + (before + link) + " ></a>\n";
    TestSite::PutAt(site / "page.htm", page);
    TestSite::PutAt(site / "d/page.htm", page);

    const Text before = FactsOf(top);
    const fs::path script = top.string() + ".play", writes = top.string() + ".writes";
    TestSite::PutAt(
        script, "wait frmWelcome\ngiven ProjectNumber 0001\ngiven DomainName site.test\ngiven LocalSiteDir " + siteOnC +
                    "\\\ngiven KeywordsPerFilename 1\nopen frmProcess\nwait frmReport\n");
    program.under = "timeout 100 env LD_PRELOAD=" FERNCASTLE_FAULTS " FAULTS_WRITES='" + writes.string() + "' ";
    EXPECT_EQ(program.Play(script), 0) << program.said;
    EXPECT_EQ(FactsOf(top), before);
    std::map<Text, int> calls;
    Text escapes;
    std::ifstream file(writes, std::ios::binary);
    const Text inside = fs::canonical(program.directory).string() + '/';
    for (Text line; std::getline(file, line, '\0');) {
        const std::size_t blank = line.find(' ');
        ++calls[line.substr(0, blank)];
        if (!(line.substr(blank + 1) + '/').starts_with(inside))
            escapes += line + '\n';
    }
    EXPECT_EQ(escapes, "");
    EXPECT_TRUE(calls["create"] > 20 && calls["link"] > 20 && calls["mkdir"] > 3 && calls["rename"] > 1)
        << "only a run that writes can show where";
    close(handle);
    for (const fs::path &one : {top, script, writes})
        fs::remove_all(one);
}
#endif
