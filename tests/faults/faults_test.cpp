// Plays the sample site's script while a library that is loaded before the C library makes one system call fail, or
// kills the player there; see preload/faults.cpp. It guards that nothing is torn and that every loss is told.
//
// Here N goes through the calls of a kind in steps, to be quick; FERNCASTLE_FAULTS_STEP=1, or any other step, sweeps
// more of them. tests/faults/sweep does that.
#ifdef FERNCASTLE_FAULTS
#include "PlayedProgram.h"
#include <algorithm>
#include <cerrno>
#include <iostream>
#include <map>
#include <regex>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace
{
using Tree = std::map<Text, Text>;  // contents by path below the program directory
const fs::path script = FERNCASTLE_DATA_DIR "/newcomer.play";

struct Faults : testing::Test {
    PlayedProgram program;
    Tree before, clean;
    std::map<Text, long> calls;  // of each kind, in a clean run
    long step = 0;
    long injected = 0;

    Faults()
    {
        if (const char *wanted = std::getenv("FERNCASTLE_FAULTS_STEP"))
            step = std::atol(wanted);
        before = All();
        program.log = program.directory.string() + ".log";  // not on a disk that is full
    }
    ~Faults() override { std::cout << injected << " calls went wrong\n"; }

    void PlayClean()
    {
        const fs::path count = program.directory.string() + ".count";
        ASSERT_EQ(Play("FAULTS_COUNT=" + count.string()), 0) << program.said;
        clean = All();
        std::ifstream lines(count);
        for (Text kind; lines >> kind;)
            lines >> calls[kind];
        fs::remove(count);
        Reset(clean);
        ASSERT_GT(calls["write"], 400);
    }

    Tree All() const
    {
        Tree Result;
        for (const auto &entry : fs::recursive_directory_iterator(program.directory)) {
            std::ostringstream content;
            if (entry.is_regular_file())
                content << std::ifstream(entry.path(), std::ios::binary).rdbuf();
            Result[entry.path().lexically_relative(program.directory).generic_string()] = content.str();
        }
        return Result;
    }

    // Plays with these variables in the environment.
    int Play(const Text &theFault, const fs::path &theScript = script)
    {
        program.under = "timeout 60 env LD_PRELOAD=" FERNCASTLE_FAULTS " FAULTS_BELOW=" + program.directory.string() +
                        " " + theFault + " ";
        return program.Play(theScript);
    }

    // Makes the program directory what it was. The site must not have changed.
    void Reset(const Tree &theTree)
    {
        for (const auto &[path, content] : theTree)
            if (const auto old = before.find(path); old == before.end() && path.find('/') == Text::npos)
                fs::remove_all(program.directory / path);
            else if (old != before.end() && old->second != content)
                TestSite::PutAt(program.directory / path, old->second);
        for (const auto &[path, content] : before) {
            const auto now = theTree.find(path);
            const bool isSame = now != theTree.end() && now->second == content;
            EXPECT_TRUE(isSame || path.ends_with(".sav")) << path << " has changed";
            if (now == theTree.end())
                TestSite::PutAt(program.directory / path, content);
        }
    }

    // What the player said of losses: its lines of these kinds, with all that belongs to them.
    Text Told() const
    {
        Text Result;
        bool isLoss = false;
        std::istringstream lines(program.said);
        for (Text line; std::getline(lines, line);) {
            if (!line.starts_with(' '))
                isLoss = line.starts_with("lost ") || line.starts_with("box ") || line.starts_with("failure ");
            if (isLoss)
                Result += line + '\n';
        }
        return Result;
    }

    // The path, or one of the directories above it, is told, and not only as the beginning of another path.
    bool IsTold(const Text &thePath) const
    {
        const Text told = LowerText(Told());
        for (fs::path path = thePath; !path.empty(); path = path.parent_path()) {
            const Text name = LowerText("c:" + ReplaceText((program.directory / path).string(), "/", "\\"));
            for (std::size_t at = 0; (at = told.find(name, at)) != Text::npos; ++at)
                if (Contains(":)\"\n", told.substr(at + name.size(), 1)))
                    return true;
        }
        return false;
    }

    // What differs from a clean run although nobody was told. A file that is missing is to be named itself. A page may
    // differ where a copy is named, since it keeps the link that the copy was for; the report and the records count
    // what there is. Where the program has ended, or cannot read something, much that comes after it may change.
    Text Untold(int theStatus, const Tree &theTree, bool isReading = false) const
    {
        const bool isOver = !Told().empty() && (theStatus != 0 || isReading);
        const bool isCopyTold = std::any_of(clean.begin(), clean.end(),
            [this, &theTree](const auto &file) { return !theTree.contains(file.first) && IsTold(file.first); });
        const auto isExplained = [&](const Text &path, bool isThere) {
            return isOver || IsTold(path) || (isThere && isCopyTold) ||
                   (!Told().empty() && path.starts_with("0001_store/"));
        };
        Text Result;
        for (const auto &[path, content] : clean)
            if (const auto now = theTree.find(path); now == theTree.end()) {
                if (!before.contains(path) && !isExplained(path, false))
                    Result += path + " is missing\n";
            } else if (now->second != content && !isExplained(path, true)) {
                Result += path + " is different\n";
            }
        for (const auto &[path, content] : theTree)
            if (!clean.contains(path) && !isExplained(path, false))
                Result += path + " is too many\n";
        return Result;
    }

    // What of theTree is neither a file of the beginning, nor as a clean run leaves it, nor a whole page on its way
    // there.
    Text Torn(const Tree &theTree, const Text &theBegin = {}) const
    {
        Text Result;
        for (const auto &[path, content] : theTree) {
            const auto last = clean.find(path);
            const bool isGrowing = Contains(path, "_store/") && path.ends_with("s.sav");
            const bool isPage = path.starts_with("0001/") && Contains(path, ".htm");
            // Each step of the run adds a line end.
            const Text text = content.substr(0, content.find_last_not_of(CRLF) + 1);
            const bool isWhole = Contains(path, "/.ferncastle-") || (last != clean.end() && last->second == content) ||
                                 (last != clean.end() && isGrowing && last->second.starts_with(content)) ||
                                 (isPage && text.starts_with("<!") && text.ends_with("</html>")) ||
                                 std::any_of(before.begin(), before.end(),
                                     [&](const auto &file) { return !content.empty() && file.second == content; });
            if (!isWhole && path.starts_with(theBegin))
                Result += path + " (" + std::to_string(content.size()) + " bytes)\n";
        }
        return Result;
    }

    template <class Check> void Sweep(const Text &theKind, long theStep, int theError, Check &&theCheck)
    {
        const long by = step > 0 && theKind != "new" ? step : theStep;
        ASSERT_GT(calls[theKind], 0) << theKind;
        for (long number = 1 + by / 2; number <= calls[theKind] && !HasFatalFailure(); number += by) {
            const Text fault = "FAULTS_KIND=" + theKind + " FAULTS_AT=" + std::to_string(number) +
                               " FAULTS_ERRNO=" + std::to_string(theError);
            SCOPED_TRACE(fault);
            ++injected;
            const int status = Play(fault);
            const Tree now = All();
            theCheck(status, now);
            Reset(now);
        }
    }
};

}  // namespace

TEST_F(Faults, EveryLossIsTold)
{
    PlayClean();
    bool isReading = false;
    const auto check = [&](int theStatus, const Tree &theTree) {
        EXPECT_LE(theStatus, 4) << program.said;
        EXPECT_EQ(Torn(theTree, "0001/"), "");
        EXPECT_EQ(Untold(theStatus, theTree, isReading), "") << theStatus << ' ' << Told();
    };
    Sweep("create", 40, ENOSPC, check);
    Sweep("write", 40, ENOSPC, check);
    Sweep("close", 40, EIO, check);
    Sweep("link", 40, EIO, check);
    Sweep("rename", 7, EIO, check);
    Sweep("mkdir", 2, ENOSPC, check);
    isReading = true;
    Sweep("open", 20, EACCES, check);
    Sweep("read", 20, EIO, check);
    Sweep("stat", 40, EIO, check);
    Sweep("opendir", 5, EMFILE, check);
    Sweep("readdir", 100, EIO, check);
}

TEST_F(Faults, AKillTearsNothing)
{
    PlayClean();
    const fs::path load = program.directory.string() + ".play";
    TestSite::PutAt(load,
        "wait frmWelcome\nclick frmWelcome.btnNext\nclick frmMenu.btnFerncastle\nclick frmLoadCreate.btnLoad\n"
        "select frmLoad.lstProjNames 0\ndoubleclick frmLoad.lstProjNames\ngo frmDirectory.Dir1 s:\\sample\n"
        "click frmDirectory.btnNext\nclick frmKeywords.btnNext\nclick frmKeywordsHowMany.btnNext\n"
        "click frmQuillmark.btnNext\nclick frmConfirm.btnExpand\nclick frmDoItAlready.btnDoItAlready\n"
        "wait frmReport\n");
    ASSERT_EQ(Play("") + program.Play(script), 0);
    const Tree twice = All();
    Reset(twice);
    long count = 0;
    const auto check = [&](int theStatus, const Tree &theTree) {
        EXPECT_EQ(theStatus, 128 + SIGKILL) << program.said;
        EXPECT_EQ(Torn(theTree), "");
        // The project of the next run stands beside what is left, and is what it would be without the kill.
        const bool isLoad = ++count % 2 == 0 && theTree.contains("0001_store/0001.key");
        program.under.clear();
        program.seed = isLoad ? "8" : "7";  // the names that the killed run drew may be taken
        EXPECT_EQ(program.Play(isLoad ? load : script), 0) << program.said;
        program.seed = "7";
        const Tree next = All();
        EXPECT_FALSE(isLoad && !next.contains("0001_store/report.html"));
        const bool isSecond = next.contains("0002");
        Text differences;
        for (const auto &[path, content] : isSecond ? twice : clean)
            if (path.starts_with(isSecond ? "0002" : "0001") && !isLoad)
                if (const auto now = next.find(path); now == next.end() || now->second != content)
                    differences += path + '\n';
        EXPECT_EQ(differences, "");
        Reset(next);
    };
    Sweep("create", 40, 0, check);
    Sweep("write", 20, 0, check);
    Sweep("link", 40, 0, check);
    Sweep("rename", 7, 0, check);
    fs::remove(load);
}

TEST_F(Faults, AFullDiskTearsNothing)
{
    PlayClean();
    const auto mount = [&](long theRoom) {
        const Text options = "size=" + std::to_string(theRoom) + "k";
        return ::mount("tmpfs", program.directory.c_str(), "tmpfs", 0, options.c_str()) == 0;
    };
    const long by = step > 0 ? 20 * step : 250;
    for (long room = 2400; room < 4400; room += by) {
        if (!mount(room))
            GTEST_SKIP() << "only root can mount a small disk";
        for (const auto &[path, content] : before)
            if (!path.starts_with("fonts") && !path.starts_with("icons") && fs::path(path).has_extension())
                TestSite::PutAt(program.directory / path, content);
        ++injected;
        const int status = Play("");
        EXPECT_LE(status, 4) << program.said;
        const Tree now = All();
        EXPECT_EQ(Torn(now, "0001/") + Untold(status, now), "") << room << program.said;
        // While the disk is nearly full, a copy that cannot be made fails where it is asked for, with a box.
        const std::regex lateLoss("lost +\\S*\\\\(0001\\S*\\\\\\d{6}-\\S*):");
        for (std::sregex_iterator loss(program.said.begin(), program.said.end(), lateLoss), end; loss != end; ++loss)
            EXPECT_TRUE(now.contains(ReplaceText((*loss)[1], "\\", "/"))) << (*loss)[1];
        umount(program.directory.c_str());
    }
}

TEST_F(Faults, NeitherMemoryNorThreadsAreNeeded)
{
    PlayClean();
    EXPECT_EQ(Play("FAULTS_KIND=thread FAULTS_AT=1+ FAULTS_ERRNO=11"), 0) << program.said;
    EXPECT_EQ(All(), clean);
    Reset(All());
    Sweep("new", step > 0 ? 1400 * step : 4000, ENOMEM, [&](int theStatus, const Tree &theTree) {
        EXPECT_TRUE(theStatus == 3 || theStatus == 0) << theStatus << program.said;
        EXPECT_EQ(Torn(theTree), "");
    });
}

TEST_F(Faults, FilesOfOtherKindsDoNoHarm)
{
    PlayClean();
    const fs::path site = program.directory / "sample";
    ASSERT_EQ(mkfifo((site / "pipe.htm").c_str(), 0666), 0);
    fs::create_symlink("/dev/zero", site / "zero.htm");
    TestSite::PutAt(site / "locked" / "page.htm", "<html>");
    ++injected;
    EXPECT_EQ(
        Play("FAULTS_BELOW=" + (site / "locked").string() + " FAULTS_KIND=opendir FAULTS_AT=1+ FAULTS_ERRNO=13"), 0);
    EXPECT_TRUE(Contains(Told(), "sample\\locked: Permission denied")) << program.said;
    const Tree now = All();
    for (const auto &[path, content] : clean)
        EXPECT_TRUE(now.contains(path) && now.at(path) == content) << path;
    // A list of words that nobody can read.
    fs::remove(program.directory / "Indexes.lst");
    ASSERT_EQ(mkfifo((program.directory / "Indexes.lst").c_str(), 0666), 0);
    EXPECT_LE(Play(""), 4);
}
#endif
