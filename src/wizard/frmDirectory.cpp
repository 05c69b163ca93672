#include "wizard/frmDirectory.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "disk/Paths.h"
#include "toolkit/Pickers.h"
#include "wizard/CleanDomain.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmLoad.h"
#include "wizard/frmLoadCreate.h"

namespace frmDirectory
{
void Form_Load(), Drive1_Change(), btnBack_Click(), btnNext_Click();

Form Me{"frmDirectory", {.Load = Form_Load}};
Label Label1{
    Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Choose the location of your site", .Style = TextStyle::Title}};
DriveList Drive1{
    Me, "Drive1", {.At = {24, 62, 270, 26}, .AccessibleName = "Drive of your site", .Change = Drive1_Change}};
DirList Dir1{Me, "Dir1", {.At = {24, 94, 270, 184}, .AccessibleName = "Directory of your site"}};
Label Label6{Me, "Label6",
    {.At = {312, 62, 234, 150},
        .Caption = "Use the controls to the left to navigate to the root directory of the site you'd like Ferncastle "
                   "to expand.  "
                   "This site must be on your local computer.  Please choose the directory where your site files are "
                   "located."}};
HelpTopic hlpTitle{Me, "hlpTitle", {554, 62}, "Choose Your Site",
    "With the drive and folder controls at the far left, go to the folder on your own computer that holds the local "
    "copy of your site.  Pick the drive first, then double-click folders until you've reached the one your home page "
    "is in.  I take the folder that's highlighted, or the one you're in if none is.  Your files are only read from "
    "there; the expanded site goes into a folder of its own beside the program."};
Label Label3{
    Me, "Label3", {.At = {312, 222, 264, 20}, .Caption = "Example: C:\\My Web Sites\\Ferns", .Style = TextStyle::Dim}};
Label Label2{Me, "Label2", {.At = {24, 288, 270, 22}, .Caption = "Your domain name:", .Style = TextStyle::SubTitle}};
TextBox txtDomainName{Me, "txtDomainName",
    {.At = {24, 314, 270, 26}, .Caption = "yoursite.example", .AccessibleName = "Your domain name"}};
HelpTopic hlpDomain{Me, "hlpDomain", {312, 316}, "Domain Name",
    "You've already chosen your domain name when you created your project.  I show it here once more so you can check "
    "it against the site you've picked, and change it if you need to.  As before, http:// and www. are taken off for "
    "you, and so is any slash at the end; https:// is not.  If you leave the box empty, I keep the domain name that "
    "you had before."};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, fullMenu};

void Form_Load()
{
    Trap([] {
        // Deliberate: both pickers start at the program directory. If the saved directory is gone they stay there: the
        // load then ends in its trap, and the domain box keeps its design text.
        Drive1.Drive = Paths::ProgramDir();
        Dir1.Path = Paths::ProgramDir();
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 1);
        hlpTitle.Picture = PictureOf("btnHelp.jpg");
        hlpDomain.Picture = PictureOf("btnHelp.jpg");
        const Text savedDir = InStoreDir(ProjectNumber + ".dir");
        const Text usualDir = LeftPart(Paths::ProgramDir(), 3) + "!!\\";
        if (ifFileExists(savedDir))
            Dir1.Path = GATHERFROMFILE(savedDir);
        else if (ifDirExists(usualDir))
            Dir1.Path = usualDir;
        const Text path = Dir1.Path;
        Drive1.Drive = path;
        Dir1.Path = path;  // a changed drive has moved it to the root of that drive
        txtDomainName.Text = DomainName;
    });
}

// Fails on a drive without a medium, and Dir1 stays where it is.
void Drive1_Change()
{
    Trap([] {
        Dir1.Path = Drive1.Drive;
        Dir1.Refresh();
    });
}

void btnNext_Click()
{
    Trap([] {
        LocalSiteDir = AddTrailingSlash(Dir1.List(Dir1.ListIndex()));
        const Text store = InStoreDir("");
        if (ifDirExists(store)) {
            PrintToFile(InStoreDir(ProjectNumber + ".dir"), LocalSiteDir + "[]");
            if (txtDomainName.Text == "") {
                // Deliberate: the box is closed again below, before anybody can read it, and the domain stays as it
                // was.
                RefuseEmptyDomain(Me);
            } else {
                DomainName = CleanDomain(txtDomainName.Text);
                PrintToFile(InStoreDir(ProjectNumber + ".dom"), DomainName + "[]");
            }
        } else {
            ShowMessageLines({"The directory:", store, "does not exist.", "btnNext_Click.frmDirectory"});
        }
        CloseHelpBoxIfOpen(Me);
        frmKeywords::Me.Show();
        Me.Unload();
    });
}

void btnBack_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        if (ProjectMode == "load")
            frmLoad::Me.Show();
        else
            frmLoadCreate::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmDirectory
