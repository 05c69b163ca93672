// Testing and creating directories.
#include "TestSite.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"

namespace fs = std::filesystem;
using Rows = std::vector<Text>;
using DirectoryServices = TestSite;

TEST_F(DirectoryServices, PlacesAreMadeAndTested)
{
    StartProject();
    const auto there = [&](const char *theDir) { return fs::exists(program / theDir); };
    for (const char *path :
        {"0001\\a\\b\\c.htm", "0001\\A\\B", "0001\\v1.0\\c\\", "0001\\v2.0", "0002_store\\", "0001\\n\\..\\a\\"})
        EXPECT_ALL(CreateDirectories(InProgramDir(path)), CreateDirectories("q:\\a\\")) << path;
    EXPECT_ALL(there("0001/a/b"), there("0001/v1.0/c"), there("0002_store"), there("0001/n"));
    EXPECT_NONE(there("0001/a/b/c.htm"), there("0001/v2.0")) << "a last element with a dot counts as a file name";
    EXPECT_EQ(std::distance(fs::directory_iterator(program / "0001"), {}), 3) << "A is a";
    Put("a/b.htm");
    Put(".hidden");
    for (const char *dir : {"x:\\", "x:\\a", "x:\\a\\", "X:\\A\\", "x:\\a\\.."})
        EXPECT_ALL(ifDirExists(dir), !ifFileExists(dir)) << dir;
    for (const char *file : {"x:\\a\\b.htm", "X:\\A\\B.HTM", "x:\\a\\*.h?m"})
        EXPECT_ALL(ifFileExists(file), !ifDirExists(file)) << file;
    for (const char *none : {"x:\\gone\\", "q:\\a\\", "x:\\.hidden", "x:\\a\\*.txt", "x:\\*\\b.htm"})
        EXPECT_NONE(ifDirExists(none), ifFileExists(none)) << none;
    for (const char *drive : {"x", "X", "x:\\", "x:\\whatever"})
        EXPECT_TRUE(ifDriveExists(drive)) << drive;
    for (const char *drive : {"", "x:", "x:a", "x\\", "xy\\", "q", "q:\\", "\\"})
        EXPECT_FALSE(ifDriveExists(drive)) << drive;
    EXPECT_ALL(front.Boxes.empty(), CreateDirectories("a\\b"));
    DebugWhere = "top of here";
    EXPECT_FALSE(ifDirExists("a\\b"));
    EXPECT_EQ(front.Boxes,
        (Rows{"You must include the drive for which you'd like to create your directory(s)\r\nexample:  C:\\a\\b",
            "ifDirExists() function must receive its parameter in the form of \"c:\\123\\456\\\"\r\n\r\n"
            "Your directory parameter was in this form:  \"a\\b\"",
            "top of here"}));
}
