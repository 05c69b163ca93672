// The host's files as the program sees them: names, the memory of directories, copies that wait, writes refused.
#include "disk/HostTest.h"

namespace fs = std::filesystem;

TEST_F(Host, PathsLeadToNamesWhateverTheirCase)
{
    for (const auto &[file, content] : Pairs{{"Dir/a.HTM", "in it"}, {"root.htm", "root"}})
        Put(file, content);
    for (const auto &[path, content] : Pairs{{"x:\\Dir\\a.HTM", "in it"}, {"X:\\DIR\\a.htm", "in it"},
             {"x:/dir/A.htm", "in it"}, {"x:\\\\dir\\.\\no\\..\\a.HTM", "in it"}, {"x:\\..\\..\\ROOT.HTM", "root"},
             {"x:\\dir\\..\\..\\..\\root.htm", "root"}, {FromHost(HostForm(site / "root.htm")), "root"}})
        EXPECT_TRUE(IsFile(path) && Read(path) == content) << path;
    for (const char *path : {"x:", "x:\\", "x:\\dir", "X:\\DIR\\\\", "x:\\dir\\no\\..", "x:/dir/"})
        EXPECT_TRUE(IsDirectory(path) && !IsFile(path)) << path;
    for (const char *path : {"", "x", "q:\\root.htm", "x:root.htm", "root.htm", "x:\\root.htm\\", "x:dir", "dir"})
        EXPECT_FALSE(IsDirectory(path) || IsFile(path)) << path;
    EXPECT_TRUE(DriveExists("X:\\any") && !DriveExists("q:") && !DriveExists("x"));
    EXPECT_EQ(ToHost("X:\\dir\\new.htm") + FromHost("/a/b/"), HostForm(site / "Dir/new.htm") + "c:\\a\\b");
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
        EXPECT_EQ(Now("a.htm") + Now("d/c.htm") + Read(In("a.htm")), "2in d2");
        EXPECT_EQ(std::distance(fs::directory_iterator(program / "0001"), {}), 3) << "a.htm, b.htm and d";
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
    for (const auto &[file, content] : Pairs{{"a.htm", "of the site"}, {"confirmed.htm", "late late of the site"},
             {"other.htm", "other of the site"}, {"written.htm", "over"}, {"deleted.htm", "(none)"},
             {"longer.htm", "of the site and more"}, {"copied on.htm", "of the site"}, {"there.htm", "another"},
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
    EXPECT_EQ(Now("whole.htm") + Now("read only.htm"), Text(100, 'n') + "new");
    EXPECT_EQ(fs::status(program / "0001/read only.htm").permissions() & fs::perms::owner_write, fs::perms::none);
    fs::permissions(program / "0001/read only.htm", fs::perms::owner_all);
    EXPECT_EQ(Joined(FilesIn(In(""))), "read only.htm whole.htm ");
    for (const auto &file : fs::directory_iterator(program / "0001"))
        EXPECT_NE(file.path().filename().string()[0], '.') << file.path() << " is left behind";
}

TEST_F(Host, NothingIsWrittenOutsideTheProjects)
{
    const std::vector<Text> kept = {"domains.lst", "notes/a.htm", "0001x/a.htm", "12/a.htm", "site on x/a.htm"};
    for (const Text &file : kept)
        PutAt(program / file, "kept");
    Put("b.htm");
    PutLink(site, program / "0001/link");
    PutLink(site, program / "0003");
    static const Text siteDir = "x:\\";
    ProtectSite(&siteDir);
    PutLink(site / "a.htm", program / "0001/link.htm");
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
