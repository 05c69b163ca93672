// The file services, byte by byte.
#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/frmLists.h"
#include "disk/PendingWrites.h"
#include "engine/frmProcess.h"

namespace fs = std::filesystem;
using Pairs = std::vector<std::pair<Text, Text>>;
using Rows = std::vector<Text>;

struct FileServices : TestSite {
    FileServices() { StartProject(); }
    Text Now(const Text &theFile) const
    {
        PendingWrites::Flush();
        return OnDisk(theFile);
    }
};

TEST_F(FileServices, MarkedValuesEndAtTheirMarker)
{
    const Text file = InProgramDir("a.sav");
    for (const auto &[content, value] : Pairs{{"5[][]\r\n", "5"}, {"a[]b[]", "a"}, {"[]", ""}, {"no marker", ""}}) {
        PutAt(program / "a.sav", content);
        EXPECT_EQ(GATHERFROMFILE(file), value) << content;
    }
    EXPECT_EQ(GATHERFROMFILE("x:\\gone") + GATHERFROMFILE("x:\\"), "FileNotExistFileNotExist");
    EXPECT_EQ(SaveMarkedFile(file, "7", 1) + SaveMarkedFile(InStoreDir("new.sav"), "5[]", 0), 0);
    EXPECT_TRUE(front.Boxes.empty());
    front.Answer = answerYes;
    SaveMarkedFile(file, "8", 0);
    EXPECT_EQ(front.Boxes, Rows{"Are you sure you want to overwrite file:  \r\n" + file + "?"});
    EXPECT_EQ(Now("a.sav") + OnDisk("0001_store/new.sav"), "7[]\r\n5[][]\r\n");
}

TEST_F(FileServices, VariablesAreReadAndJoined)
{
    // Without a CR the value begins three characters too early, counted from the end.
    for (const auto &[content, value] : Pairs{{"|||Var|||1\r\n", "1"}, {"|||v|||1\r\n|||VAR|||2\r\n", "2"},
             {"|||var|||x|||b|||y\r\n", "x|||b|||y"}, {"|||var|||x\ny\r", "x\ny"}, {"|||variable|||1\r\n", ""},
             {"|||Var|||val", "ar|||val"}, {"|||var|||5\n|||b|||678", "|b|||678"}}) {
        PutAt(program / "variables.sav", content);
        EXPECT_EQ(LoadVariable("vaR", 0), value) << content;
    }
    // In the last row but one, dropping two characters fails, so nothing is written.
    for (const auto &[before, after] : Pairs{{"|||A|||0\r\n", "|||A|||1\r\n"}, {"|||a|||longer\r\n", "|||A|||1\r\n"},
             {"|||B|||2\r\n|||A|||0\r\n", "|||B|||2\r\n|||A|||1\r\n"}, {"|||B|||2\r\n", "|||B|||2\r\n|||A|||1\r\n"},
             {"|||A|||0\r\n|||B|||2\r\n", "|||A|||1|||B|||2\r\n"}, {"|||A|||0", "|||A|||1|||A|||0\r\n"},
             {"|||A|||0\n\n", "|||A|||0\n\n"}, {"", "|||A|||1\r\n"}}) {
        PutAt(program / "variables.sav", before);
        EXPECT_EQ(SaveVariable("A", "1", 0), 0);
        EXPECT_EQ(Now("variables.sav"), after) << before;
    }
    SaveVariable("A", "of the project", 1);
    EXPECT_EQ(Now("0001_store/variables.sav") + LoadVariable("a", 1), "|||A|||of the project\r\nof the project");
}

TEST_F(FileServices, ListsAreLoadedAndSaved)
{
    ListBox &list = frmLists::lstDictionary;
    for (const auto &[content, rows] : std::vector<std::pair<Text, Rows>>{{"a\r\nb\r\n", {"a", "b"}}, {"a\r\nb", {"a"}},
             {"\r\n \r\n", {"", " "}}, {"", {}}, {"a\nb\n", {}}, {"a\rbc\r", {"a", "c"}}, {"a\r", {"a"}}}) {
        list.SetRows({"of before"});
        PutAt(program / "w.lst", content);
        EXPECT_EQ(LoadListFromFile("lst", "w", list), static_cast<long>(rows.size()));
        EXPECT_EQ(list.Rows(), rows) << content;
    }
    list.AddItem("by hand");
    EXPECT_EQ(LoadListFromFile("lst", "w", list) + list.ListCount(), 2) << "a list changed by hand is filled again";
    EXPECT_EQ(LoadListFromFile("lst", "w", list) + list.ListCount(), 2) << "neither has changed";
    Text many;
    for (int i = 0; i < 30005; ++i)
        many += std::to_string(i) + CRLF;
    PutAt(program / "w.lst", many);
    EXPECT_EQ(LoadListFromFile("lst", "w", list), 30001) << "a changed file is read again, up to the limit of rows";
    fs::remove(program / "w.lst");
    EXPECT_EQ(LoadListFromFile("lst", "w", list) + list.ListCount(), 0);
    EXPECT_EQ(SaveListToFile("lst", "0001_store\\empty", list), "");
    list.SetRows({"htm", "", "tml"});
    SaveListToFile("key", "0001_store\\0001", list);
    EXPECT_EQ(Now("0001_store/empty.lst") + OnDisk("0001_store/0001.key"), "\r\nhtm\r\n\r\ntml\r\n");
}

TEST_F(FileServices, LinesAreAppended)
{
    for (const auto &[before, after] : Pairs{{"", "b\r\n"}, {"a\r\n", "a\r\nb\r\n"}, {"a\n", "a\nb\r\n"},
             {"a", "a\r\nb\r\n"}, {"a\r", "a\r\r\nb\r\n"}}) {
        PutAt(program / "a.sav", before);
        EXPECT_EQ(AppendLineToFile("a.sav", Paths::ProgramDir(), "b"), 0);
        EXPECT_EQ(Now("a.sav"), after) << before;
    }
    EXPECT_EQ(AppendLineToFile("0001", Paths::ProgramDir(), "b"), 0) << "a failure shows no message";
}

TEST_F(FileServices, FilesAreCopied)
{
    Put("a.htm", "new");
    BrokenLinksTally = 5;
    EXPECT_EQ(CopyFile("x:\\gone.htm", InStoreDir("a.htm")) + CopyFile("x:\\", InStoreDir("a.htm")), 2);
    PutAt(program / "0001" / "B.htm", "longer than the new one");
    EXPECT_EQ(CopyFile("X:\\A.HTM", InStoreDir("d\\b.htm")) + CopyFile("x:\\a.htm", InProgramDir("0001\\b.HTM")), 0);
    EXPECT_ALL(front.Boxes.empty(), BrokenLinksTally == 7, !frmProcess::Me.Loaded) << "the label does not change";
    EXPECT_EQ(Now("0001_store/d/b.htm") + OnDisk("0001/B.htm"), "newnew");
    EXPECT_EQ(std::distance(fs::directory_iterator(program / "0001"), {}), 1) << "b.HTM is B.htm";
    for (const Text &target : {InStoreDir("readme"), InStoreDir("d"), InProgramDir("domains.lst"), Text("q:\\b.htm")}) {
        EXPECT_EQ(CopyFile("x:\\a.htm", target), 1) << target;
        EXPECT_EQ(front.Boxes.back(),
            "Unable to copy file:\r\nx:\\a.htm\r\nto file:\r\n" + target + "\r\n\r\nCopyFile.FileHandle\r\n");
    }
    EXPECT_ALL(front.Boxes.size() == 4, fs::is_directory(program / "0001_store/readme"))
        << "a name without a dot counts as a directory";
}
