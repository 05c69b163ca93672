#include "TestSite.h"
#include "core/FileHandle.h"
#include "wizard/CleanDomain.h"
#include "wizard/frmCreate.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmLoad.h"
#include "wizard/frmLoadCreate.h"

namespace fs = std::filesystem;

namespace
{
struct FirstScreens : TestSite {
    static void Create(const Text &theName, const Text &theDomain)
    {
        frmCreate::Me.Show();
        UserEdit(The<TextBox>(frmCreate::Me, "txtProjName"), theName);
        UserEdit(The<TextBox>(frmCreate::Me, "txtDomainName"), theDomain);
        Click(frmCreate::Me, "btnNext");
    }
    void MakeDir(const char *theName) const { fs::create_directory(program / theName); }
};
}  // namespace

TEST_F(FirstScreens, DomainIsCleaned)
{
    EXPECT_EQ(CleanDomain("http://www.site.test//"), "site.test");
    EXPECT_EQ(CleanDomain("http://http://www.www.site.test\\\\"), "site.test");
    EXPECT_EQ(CleanDomain("site.test/\\"), "site.test/");
    EXPECT_EQ(CleanDomain("HTTP://site.test/"), "HTTP://site.test");
    EXPECT_EQ(CleanDomain("www.http://site.test"), "http://site.test");
    EXPECT_EQ(CleanDomain("http:///"), "");
}

TEST_F(FirstScreens, LowestFreeNumberIsTaken)
{
    for (const char *name : {"0001", "0003", "0002_store"})
        MakeDir(name);
    Create("Ferns", "http://www.site.test//");
    EXPECT_EQ(ProjectNumber, "0002");
    EXPECT_ALL(frmDirectory::Me.Visible, !frmCreate::Me.Loaded);
    EXPECT_EQ(Files::Read(InStoreDir("0002.name")), "Ferns[]\r\n");
    EXPECT_EQ(Files::Read(InStoreDir("0002.dom")), "site.test[]\r\n");
    Create("Ferns", "site.test");
    EXPECT_EQ(ProjectNumber, "0004");
}

TEST_F(FirstScreens, ListEndsAtGap)
{
    for (const char *name : {"One", "Two", "Three"})
        Create(name, "site.test");
    fs::remove_all(program / "0002_store");
    EXPECT_EQ(frmLoad::Me.Find<ListBox>("lstProjNames")->Rows(), std::vector<Text>{"One"});
    fs::remove(program / "0001_store" / "0001.dom");
    EXPECT_EQ(frmLoad::getProjectName("0001", 1), "");
    EXPECT_EQ(
        front.Boxes, std::vector<Text>{"Error:\r\nThe project storage file:\r\n" + InProgramDir("0001\\0001.dom") +
                                       "\r\ncould not be found.\r\n\r\ngetProjectName.frmLoad\r\n"});
}

TEST_F(FirstScreens, LoadingNeedsTheFirstProject)
{
    MakeDir("0002");
    frmLoadCreate::Me.Show();
    for (const char *name : {"btnLoad", "lblLoad1", "lblLoad2"})
        EXPECT_TRUE(Click(frmLoadCreate::Me, name));
    MakeDir("0001");
    Click(frmLoadCreate::Me, "lblLoad1");
    EXPECT_EQ(front.Boxes, std::vector<Text>(4, "You cannot load a project until you have first created one."));
    EXPECT_TRUE(frmLoadCreate::Me.Visible);
    Click(frmLoadCreate::Me, "lblLoad2");
    EXPECT_TRUE(frmLoad::Me.Visible);
    EXPECT_EQ(frmLoad::Me.Find<ListBox>("lstProjNames")->ListCount(), 0);
    EXPECT_FALSE(Click(frmLoad::Me, "btnRemove"));
    Click(frmLoad::Me, "btnNext");
    EXPECT_TRUE(frmDirectory::Me.Visible) << "the complaint doesn't stop the move";
    EXPECT_FALSE(HelpBoxOpen);
    EXPECT_EQ(ProjectMode, "load");
}

TEST_F(FirstScreens, SavedDirectoryIsGoneTo)
{
    MakeDir("site");
    Paths::MapDrive('x', HostForm(program));
    Create("Ferns", "site.test");
    auto &list = *frmDirectory::Me.Find<DirList>("Dir1");
    EXPECT_EQ(list.Path, Paths::ProgramDir());
    list.Path = "x:\\site";
    UserEdit(*frmDirectory::Me.Find<TextBox>("txtDomainName"), "");
    Click(frmDirectory::Me, "btnNext");
    EXPECT_TRUE(frmKeywords::Me.Visible);
    EXPECT_EQ(DomainName, "site.test");
    EXPECT_EQ(LocalSiteDir, "x:\\site\\");
    EXPECT_EQ(list.Path, "x:\\site");
    EXPECT_EQ(frmDirectory::Me.Find<DriveList>("Drive1")->Drive, "x:");
    EXPECT_EQ(frmDirectory::Me.Find<TextBox>("txtDomainName")->Text, "site.test");
    frmDirectory::Me.Unload();
    fs::remove(program / "site");
    EXPECT_EQ(frmDirectory::Me.Find<TextBox>("txtDomainName")->Text, "yoursite.example");
}
