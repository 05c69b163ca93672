// What only file systems of Linux and macOS hold: names that differ in case alone, pipes, links, names with any byte.
#include "disk/HostTest.h"
#include <sys/stat.h>

namespace fs = std::filesystem;

TEST_F(Host, NamesThatDifferInCaseAloneAreToldApart)
{
    for (const auto &[file, content] : Pairs{{"Dir/a.HTM", "small"}, {"Dir/A.htm", "capital"}})
        Put(file, content);
    for (const auto &[path, content] : Pairs{{"x:\\Dir\\a.HTM", "small"}, {"X:\\DIR\\a.htm", "capital"},
             {"x:/dir/A.htm", "capital"}, {"x:\\\\dir\\.\\no\\..\\a.HTM", "small"}})
        EXPECT_EQ(Read(path), content) << path;
    Write(In("own.htm"), "own");
    Rest();
    PutAt(program / "0001/OWN.HTM", "in other case");
    Write(In("Own.htm"), "first");
    EXPECT_EQ(Now("OWN.HTM") + Read(In("own.htm")) + Joined(FilesIn(In(""))), "firstownOWN.HTM own.htm ");
}

TEST_F(Host, WhoHasOpenedAReplacedFileReadsItToItsEnd)
{
    PutAt(program / "0001/whole.htm", Text(100000, 'o'));
    std::ifstream reader(program / "0001/whole.htm");
    Write(In("whole.htm"), "new");
    std::ostringstream seen;
    seen << reader.rdbuf();
    EXPECT_EQ(seen.str() + Now("whole.htm"), Text(100000, 'o') + "new");
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
