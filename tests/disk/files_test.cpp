// The host's files as the program sees them: names, the memory of directories, copies that wait, writes refused.
#include "TestSite.h"
#include "disk/DirectoryCache.h"
#include "disk/Losses.h"
#include "disk/PendingWrites.h"
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;
using namespace Files;
using namespace Paths;
using Pairs = std::vector<std::pair<Text, Text>>;

namespace
{
struct Host : TestSite {
    Host() { StartProject(); }
    // A path in the project's directory, and what the disk holds there.
    static Text In(const Text &theRest) { return ProgramDir() + "\\0001\\" + theRest; }
    Text Now(const Text &theFile) const { return OnDisk("0001/" + theFile); }
    static Text Joined(const Names &theNames)
    {
        Text Result;
        for (const Text &name : *theNames)
            Result.append(name).append(" ");
        return Result;
    }
    // Lets so much time pass that a directory isn't taken for one that is just being changed.
    static void Rest() { std::this_thread::sleep_for(std::chrono::milliseconds(70)); }
};
}  // namespace

TEST_F(Host, PathsLeadToNamesWhateverTheirCase)
{
    for (const auto &[file, content] : Pairs{{"Dir/a.HTM", "small"}, {"Dir/A.htm", "capital"}, {"root.htm", "root"}})
        Put(file, content);
    for (const auto &[path, content] : Pairs{{"x:\\Dir\\a.HTM", "small"}, {"X:\\DIR\\a.htm", "capital"},
             {"x:/dir/A.htm", "capital"}, {"x:\\\\dir\\.\\no\\..\\a.HTM", "small"}, {"x:\\..\\..\\ROOT.HTM", "root"},
             {"x:\\dir\\..\\..\\..\\root.htm", "root"}, {FromHost((site / "root.htm").string()), "root"}})
        EXPECT_TRUE(IsFile(path) && Read(path) == content) << path;
    for (const char *path : {"x:", "x:\\", "x:\\dir", "X:\\DIR\\\\", "x:\\dir\\no\\..", "x:/dir/"})
        EXPECT_TRUE(IsDirectory(path) && !IsFile(path)) << path;
    for (const char *path : {"", "x", "q:\\root.htm", "x:root.htm", "root.htm", "x:\\root.htm\\", "x:dir", "dir"})
        EXPECT_FALSE(IsDirectory(path) || IsFile(path)) << path;
    EXPECT_TRUE(DriveExists("X:\\any") && !DriveExists("q:") && !DriveExists("x"));
    EXPECT_EQ(ToHost("X:\\dir\\new.htm") + FromHost("/a/b/"), (site / "Dir/new.htm").string() + "c:\\a\\b");
    for (const auto &[path, plain] : Pairs{{"x:\\a\\.\\b\\\\c\\", "x:\\a\\b\\c"}, {"x:", "x:\\"},
             {"x:\\..\\a", "x:\\a"}, {"x:\\a\\..", "x:\\"}, {"x:/a/b/..\\c", "x:\\a\\c"}, {"x:\\...", "x:\\..."}})
        EXPECT_EQ(Normalize(path), plain) << path;
    for (const auto &[path, dir] : Pairs{{"x:\\A\\b", "x:\\a\\"}, {"x:\\a", "X:\\a"}, {"x:\\a", "x:\\"},
             {"x:/a/b", "x:\\a\\\\b"}, {"x:\\a\\.\\b", "x:\\a\\b"}, {"x:\\b\\..\\a\\.b", "x:\\a"}, {"x:", "x:\\"}})
        EXPECT_TRUE(IsInside(path, dir)) << path;
    for (const auto &[path, dir] : Pairs{{"x:\\ab", "x:\\a"}, {"x:\\a\\..\\b", "x:\\a"}, {"x:\\", "x:\\a"},
             {"x:\\a\\b/..\\../c", "x:\\a"}, {"x:\\a", "x:\\a\\b\\"}})
        EXPECT_FALSE(IsInside(path, dir)) << path;
    EXPECT_EQ(FromHost("/"), "c:\\");
}

TEST_F(Host, ListingsHoldWhatAUserSees)
{
    for (const char *file : {"b.htm", "A.htm", "a.htm", ".hidden", "back\\slash", "Sub/x", "sub2/y", ".dir/z", "w*d"})
        Put(file);
    for (const auto &[target, link] : std::vector<std::pair<fs::path, Text>>{
             {site, "around"}, {program, "above"}, {"Sub", "beside"}, {"b.htm", "to b"}, {"gone", "dangling"}})
        fs::create_symlink(target, site / link);
    ASSERT_EQ(mkfifo((site / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(Joined(FilesIn("x:\\")) + Joined(DirectoriesIn("x:\\")), "A.htm a.htm b.htm to b w*d beside Sub sub2 ");
    for (const char *name : {"x:\\*.htm", "x:\\???", "x:\\W*D", "x:\\b.*", "x:\\sub\\*", "x:\\beside\\x", "x:\\*m"})
        EXPECT_TRUE(IsFile(name)) << name;
    for (const char *name :
        {"x:\\.hidden", "x:\\.*", "x:\\*.ht", "x:\\su*", "x:\\*\\x", "x:\\pipe", "x:\\dangling", "x:\\??"})
        EXPECT_FALSE(IsFile(name)) << name;
    EXPECT_THROW(Read("x:\\*.htm"), RuntimeFailure) << "only a look-up knows wildcards";
}

TEST_F(Host, MemorySeesEveryChange)
{
    for (const int milliseconds : {0, 1'000'000}) {
        DirectoryCache::SetRecheckInterval(milliseconds);
        EXPECT_FALSE(IsFile(In("a.htm")) || IsDirectory(In("d")));
        const Names before = FilesIn(In(""));
        Append(In("b.htm"), "one");
        Write(In("a.htm"), "one");
        EXPECT_TRUE(MakeDirectory(In("d")) && IsDirectory(In("D\\")) && !MakeDirectory(In("D")));
        EXPECT_FALSE(MakeDirectory(In("A.htm")) || MakeDirectory(In("no\\e")));
        EXPECT_EQ(Joined(FilesIn(In(""))) + Joined(DirectoriesIn(In(""))), "a.htm b.htm d ");
        EXPECT_TRUE(before->empty()) << "a listing stays what it was when it was taken";
        Write(In("A.HTM"), "2");
        Write(In("D\\c.htm"), "in d");
        EXPECT_EQ(Now("a.htm") + Now("A.HTM") + Now("d/c.htm") + Read(In("a.htm")), "2(none)in d2");
        Delete(In("a.htm"));
        EXPECT_FALSE(IsFile(In("a.htm")));
        Delete(In("b.htm"));
        DirectoryCache::SetRecheckInterval(0);
        fs::remove_all(program / "0001/d");
        EXPECT_FALSE(IsDirectory(In("d")));
    }
    Rest();
    EXPECT_FALSE(IsFile(In("own.htm")) || IsFile("x:\\d\\a.htm"));
    Put("d/a.htm");
    EXPECT_TRUE(IsFile("x:\\d\\A.htm"));
    fs::rename(site / "d/a.htm", site / "d/c.htm");
    EXPECT_EQ(Joined(FilesIn("x:\\d")), "c.htm ");
    fs::remove_all(site / "d");
    EXPECT_FALSE(IsFile("x:\\d\\c.htm") || IsDirectory("x:\\d"));
    Put("d/b.htm", "new");
    EXPECT_EQ(Read("x:\\d\\b.htm") + Joined(FilesIn("x:\\d")), "newb.htm ");
    Write(In("own.htm"), "own");
    Rest();
    PutAt(program / "0001/other.htm", "another's");
    EXPECT_EQ(Joined(FilesIn(In(""))), "other.htm own.htm ");
    Rest();
    PutAt(program / "0001/OWN.HTM", "in other case");
    Write(In("Own.htm"), "first");
    EXPECT_EQ(Now("OWN.HTM") + Read(In("own.htm")) + Joined(FilesIn(In(""))), "firstownother.htm OWN.HTM own.htm ");
    MakeDirectory(In("d"));
    Copy("x:\\d\\b.htm", In("d\\alone.htm"), {[](const Text &theText, const Text &) { return theText; }, ""});
    Rest();
    PutAt(program / "0001/d/other.htm", "another's");
    EXPECT_EQ(Joined(FilesIn(In("d"))), "alone.htm other.htm ") << "the only copy in its directory";
}

TEST_F(Host, ACopyIsWhatWasAskedForWhateverIsExpectedOfIt)
{
    Put("a.htm", "of the site");
    Put("b.htm", "another");
    PutAt(program / "0001/there.htm", "longer than what comes");
    const auto written = [&](const char *theFile) {
        PendingWrites::FinishWriting();
        return Now(theFile);
    };
    const auto expected = [](const Text &theContent, const Text &theArgument) { return theArgument + theContent; };
    const Expectation late{expected, "late "}, other{expected, "other "};
    for (const char *target :
        {"a.htm", "confirmed.htm", "other.htm", "written.htm", "deleted.htm", "longer.htm", "read.htm"})
        Copy("x:\\a.htm", In(target), late);
    EXPECT_EQ(written("a.htm") + written("confirmed.htm"), "late of the sitelate of the site") << "at once";
    EXPECT_EQ(Read(In("A.htm")), "of the site") << "for the program it is a copy";
    EXPECT_FALSE(EndsInLineFeed(In("a.htm")));
    const auto before = fs::last_write_time(program / "0001/confirmed.htm");
    Rewrite(In("confirmed.htm"), late);
    EXPECT_EQ(fs::last_write_time(program / "0001/confirmed.htm"), before) << "nothing is left to do";
    Rewrite(In("confirmed.htm"), late);
    Rewrite(In("other.htm"), other);
    Write(In("WRITTEN.htm"), "over");
    Delete(In("deleted.htm"));
    Append(In("longer.htm"), " and more");
    Copy(In("a.htm"), In("copied on.htm"));
    Copy("x:\\b.htm", In("THERE.htm"), late);
    Put("a.htm", "changed since");
    Copy("x:\\a.htm", In("later.htm"), late);
    EXPECT_EQ(written("later.htm") + written("read.htm"), "late changed sincelate of the site");
    for (int i = 0; i < 30000; ++i)
        Append(In("rows.sav"), "abc\n");
    EXPECT_TRUE(EndsInLineFeed(In("rows.sav")) && Now("rows.sav").size() < 120000) << "not a write a row";
    EXPECT_EQ(Read(In("rows.sav")).size(), 120000u);
    Write(In("rows.sav"), "new");
    Append(In("rows.sav"), " and");
    PendingWrites::Flush();
    for (const auto &[file, content] :
        Pairs{{"a.htm", "of the site"}, {"confirmed.htm", "late late of the site"}, {"other.htm", "other of the site"},
            {"written.htm", "over"}, {"deleted.htm", "(none)"}, {"longer.htm", "of the site and more"},
            {"copied on.htm", "of the site"}, {"there.htm", "another"}, {"THERE.htm", "(none)"},
            {"rows.sav", "new and"}, {"later.htm", "changed since"}, {"read.htm", "changed since"}})
        EXPECT_EQ(Now(file), content) << file;
    EXPECT_TRUE(Losses::All().empty());
}

TEST_F(Host, WhatCannotBeDoneSaysSoAndIsNoted)
{
    Put("a.htm", "a");
    Put("b.htm", "b");
    fs::create_directory(program / "0001/d");
    const Expectation late{[](const Text &theContent, const Text &) { return theContent + "!"; }};
    for (const Text &target : {In("d"), In("d\\"), In("no\\a.htm"), In(""), In(Text(300, 'n')), Text("a.htm")})
        for (const Expectation &expectation : {Expectation(), late}) {
            EXPECT_THROW(Copy("x:\\a.htm", target, expectation), RuntimeFailure) << target;
        }
    for (const char *source : {"x:\\gone.htm", "x:\\", "x:\\*.htm", ""})
        EXPECT_THROW(Copy(source, In("a.htm"), late), RuntimeFailure) << source;
    EXPECT_TRUE(FilesIn(In(""))->empty());
    ASSERT_EQ(Losses::All().size(), 10u);
    EXPECT_EQ(Losses::All()[0].File + Losses::All()[0].Reason, In("d") + "not a plain file");
    EXPECT_EQ(Losses::All()[0].Times, 2);
    EXPECT_TRUE(Losses::HasNews());
    Losses::MarkTold("Unable to copy file:\r\n" + In("d") + "\r\n");
    EXPECT_EQ(Losses::TakeNews().size(), 9u) << "the one that the words name is told";
    EXPECT_FALSE(Losses::HasNews());
    Rest();
    for (const char *target : {"d\\a.htm", "a.htm"})
        Copy("x:\\a.htm", In(target), late);
    Copy("x:\\b.htm", In("b.htm"), late);
    PendingWrites::FinishWriting();
    fs::remove_all(program / "0001/d");
    fs::remove(site / "a.htm");
    EXPECT_FALSE(IsFile(In("d\\a.htm")) || IsFile("x:\\a.htm"));
    PendingWrites::Flush();
    EXPECT_EQ(Losses::TakeNews().size(), 2u);
    EXPECT_EQ(Now("a.htm") + Now("b.htm"), "a!b") << "the one that can't be made anew stays, the others are made";
    EXPECT_TRUE(MakeDirectory(In("d")));
}

TEST_F(Host, AReplacedFileIsNeverSeenHalf)
{
    PutAt(program / "0001/read only.htm", "old");
    fs::permissions(program / "0001/read only.htm", fs::perms::owner_read);
    PutAt(program / "0001/whole.htm", Text(100000, 'o'));
    const fs::path whole = program / "0001/whole.htm";
    std::ifstream reader(whole);
    Write(In("whole.htm"), Text(100, 'n'));
    Write(In("read only.htm"), "new");
    const auto writeInPieces = [&](const Text &theEnd) {
        Write(In("read only.htm"), [&](const auto &theSink) {
            theSink(Text(9 << 20, 'p'));
            EXPECT_EQ(Now("read only.htm"), "new");
            theSink(theEnd.empty() ? Read("x:\\none.htm") : theEnd);
        });
        return Now("read only.htm");
    };
    EXPECT_THROW(writeInPieces(""), RuntimeFailure);
    EXPECT_EQ(Now("read only.htm") + std::to_string(Losses::TakeNews().size()), "new1");
    EXPECT_EQ(writeInPieces("end"), Text(9 << 20, 'p') + "end");
    Write(In("read only.htm"), "new");
    std::ostringstream seen;
    seen << reader.rdbuf();
    EXPECT_EQ(seen.str(), Text(100000, 'o')) << "who has opened the old file reads it to its end";
    EXPECT_EQ(Now("whole.htm") + Now("read only.htm"), Text(100, 'n') + "new");
    EXPECT_EQ(fs::status(program / "0001/read only.htm").permissions(), fs::perms::owner_read);
    EXPECT_EQ(Joined(FilesIn(In(""))), "read only.htm whole.htm ");
    for (const auto &file : fs::directory_iterator(program / "0001"))
        EXPECT_NE(file.path().filename().string()[0], '.') << file.path() << " is left behind";
}

TEST_F(Host, OnlyPlainFilesAreReadAndLoopsAreEntered)
{
    Put("d/page.htm", "page");
    fs::create_directory_symlink("..", site / "d/up");
    EXPECT_EQ(Joined(DirectoriesIn("x:\\d")), "") << "a walk must not go there";
    EXPECT_EQ(Read("x:\\d\\up\\d\\page.htm"), "page");
    EXPECT_TRUE(IsFile("x:\\d\\page.htm"));
    DirectoryCache::SetRecheckInterval(1'000'000);
    EXPECT_TRUE(IsFile("x:\\d\\page.htm"));
    fs::remove(site / "d/page.htm");
    ASSERT_EQ(mkfifo((site / "d/page.htm").c_str(), 0600), 0);
    EXPECT_THROW(Read("x:\\d\\page.htm"), RuntimeFailure) << "not a plain file any more";
    EXPECT_THROW(Copy("x:\\d\\page.htm", In("a.htm")), RuntimeFailure);
    EXPECT_TRUE(
        IsReallyInside("c:\\usr", "c:\\") && IsReallyInside("c:\\", "c:\\") && !IsReallyInside("c:\\", "c:\\usr"));
    EXPECT_FALSE(IsReallyInside("c:\\usr", "x:\\gone") || IsReallyInside("x:\\gone", "c:\\"));
}

TEST_F(Host, NothingIsWrittenOutsideTheProjects)
{
    const std::vector<Text> kept = {"domains.lst", "notes/a.htm", "0001x/a.htm", "12/a.htm", "site on x/a.htm"};
    for (const Text &file : kept)
        PutAt(program / file, "kept");
    Put("b.htm");
    fs::create_symlink(site, program / "0001/link");
    fs::create_symlink(site, program / "0003");
    static const Text siteDir = "x:\\";
    ProtectSite(&siteDir);
    fs::create_symlink(site / "a.htm", program / "0001/link.htm");
    fs::create_hard_link(site / "a.htm", program / "0001/hard.htm");
    for (const char *path :
        {"..\\site on x\\a.htm", "..\\domains.lst", "../domains.lst", "d\\..\\..\\domains.lst", "..\\new.txt",
            "..\\imgs\\btnNext.jpg", "..\\notes\\a.htm", "..\\0001x\\a.htm", "..\\12\\a.htm", "..\\0003\\a.htm",
            "..\\..\\new.sav", "link\\a.htm", "link\\new.htm", "link\\..\\..\\domains.lst", "..\\0001"}) {
        const Text file = In(path);
        EXPECT_THROW(Write(file, "spoilt"), RuntimeFailure) << file;
        EXPECT_THROW(Append(file, "spoilt"), RuntimeFailure) << file;
        EXPECT_THROW(Copy("x:\\b.htm", file), RuntimeFailure) << file;
        EXPECT_THROW(Delete(file), RuntimeFailure) << file;
        EXPECT_FALSE(MakeDirectory(file)) << file;
    }
    for (const char *link : {"hard.htm", "LINK.htm"})
        Write(In(link), "of the project");
    PendingWrites::Flush();
    for (const Text &file : kept)
        EXPECT_EQ(OnDisk(file), "kept") << file;
    EXPECT_EQ(Joined(FilesIn("x:\\")) + Now("hard.htm") + Now("link.htm"), "a.htm b.htm of the projectof the project");
    for (const char *path : {"..\\variables.sav", "..\\Last.chk", "a.htm", "..\\0001_store\\a", "link\\..\\b.htm"}) {
        Write(In(path), "new");
        EXPECT_EQ(Read(In(path)), "new") << path;
    }
}

TEST_F(Host, LinksAreFollowedWithinTheProgramDirectory)
{
    PutAt(program / "kept/store/a.key", "old");
    PutAt(program / "kept/settings", "old");
    fs::create_directory_symlink("kept/store", program / "0002_store");
    fs::create_directory_symlink(program / "kept", program / "0002");
    fs::create_symlink("kept/settings", program / "variables.sav");
    EXPECT_TRUE(MakeDirectory(In("..\\0002\\d")));
    for (const auto &[path, file] : Pairs{{"..\\0002_store\\a.key", "kept/store/a.key"},
             {"..\\0002\\d\\new.htm", "kept/d/new.htm"}, {"..\\VARIABLES.sav", "kept/settings"}}) {
        Write(In(path), "new");
        Append(In(path), ", more");
        EXPECT_EQ(Read(In(path)), "new, more") << path;
        PendingWrites::Flush();
        EXPECT_EQ(OnDisk(file), "new, more") << path;
    }
    EXPECT_TRUE(fs::is_symlink(program / "variables.sav"));

    const fs::path outside = program.string() + " outside";
    PutAt(outside / "a.htm", "kept");
    fs::create_directory_symlink(".", program / "0003");
    fs::create_directory_symlink(outside, program / "0003_store");
    fs::create_directory_symlink(outside / "gone", program / "0004_store");
    fs::create_directory_symlink("../0001", program / "kept/up");
    fs::remove(program / "0002_store");
    fs::create_directory_symlink(outside, program / "0002_store");
    fs::create_symlink(outside / "gone", program / "Last.chk");
    EXPECT_FALSE(IsFile(In("..\\0002_store\\a.key")));
    for (const auto &[path, reason] : Pairs{{"..\\0003\\variables.sav", linkLeadsOut},
             {"..\\0003_store\\a.htm", linkLeadsOut}, {"..\\0002_store\\a.htm", linkLeadsOut},
             {"..\\0002\\up\\a.htm", "writing is not allowed there"}, {"..\\Last.chk", linkLeadsNowhere}})
        try {
            Write(In(path), "spoilt");
            ADD_FAILURE() << path;
        } catch (const RuntimeFailure &failure) {
            EXPECT_EQ(failure.What, reason) << path;
        }
    EXPECT_FALSE(MakeDirectory(In("..\\0004_store")));
    EXPECT_EQ(Losses::All().back().Reason, linkLeadsNowhere);
    // A link of the settings that leads out is replaced by a file.
    fs::remove(program / "variables.sav");
    fs::create_symlink(outside / "a.htm", program / "variables.sav");
    Write(In("..\\variables.sav"), "own");
    EXPECT_EQ(OnDisk("variables.sav") + OnDisk("kept/settings"), "ownnew, more");
    EXPECT_EQ(Read(FromHost((outside / "a.htm").string())), "kept");
    fs::remove_all(outside);
}
