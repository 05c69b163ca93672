#include "wizard/frmCreate.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/RandomBas.h"
#include "core/Support.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "wizard/CleanDomain.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmDirectory.h"
#include "wizard/frmLoadCreate.h"

namespace frmCreate
{
void Form_Load(), btnBack_Click(), btnNext_Click();

Form Me{"frmCreate", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Create a New Project", .Style = TextStyle::Title}};
Label Label2{Me, "Label2", {.At = {24, 62, 400, 22}, .Caption = "Name your project:", .Style = TextStyle::SubTitle}};
TextBox txtProjName{Me, "txtProjName", {.At = {24, 88, 300, 26}, .AccessibleName = "Name your project"}};
Label Label4{Me, "Label4",
    {.At = {364, 92, 212, 20}, .Caption = "(Example: " + CleanDomain(SupportSite) + ")", .Style = TextStyle::Dim}};
HelpTopic hlpProjName{Me, "hlpProjName", {332, 90}, "Project Name",
    "You can name your project session anything you'd like.  The name is there for you: it's what you'll look for in "
    "the list when you load the project again, and it has no effect on your pages.  I recommend using your domain "
    "name.  If you use a name a second time nothing is overwritten; you simply get another project of that name with a "
    "number of its own."};
Label Label3{Me, "Label3",
    {.At = {24, 122, 522, 58},
        .Caption = "Create a name for your new project so it can be saved.  You can later come back, modify your "
                   "project, and run it again.  You can make this name anything you choose."}};
Label Label5{
    Me, "Label5", {.At = {24, 206, 400, 22}, .Caption = "Your Site's Domain Name:", .Style = TextStyle::SubTitle}};
TextBox txtDomainName{Me, "txtDomainName", {.At = {24, 232, 300, 26}, .AccessibleName = "Your site's domain name"}};
Label Label6{Me, "Label6",
    {.At = {364, 236, 212, 20}, .Caption = "(Example: " + CleanDomain(SupportSite) + ")", .Style = TextStyle::Dim}};
HelpTopic hlpDomainName{Me, "hlpDomainName", {332, 234}, "Domain Name",
    "This is a straightforward step.  Enter the domain name that your site has on the internet, in small letters.  You "
    "can leave out http:// and www. since I take them off anyway, along with any slash at the end.  Leave out https:// "
    "too: that one I don't take off.  I use your domain to tell the links that stay within your site from those that "
    "lead to somewhere else, so please make sure it's spelled correctly."};
Label Label7{Me, "Label7",
    {.At = {24, 266, 522, 58},
        .Caption = "You must enter the domain name that refers to the site you are about to expand.  This is the "
                   "domain that Ferncastle will use to gain the maximum benefit for your site."}};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me};
// Deliberate: these stand in the corners of the help frame and have neither a picture nor a handler.
Image btnHelpMore{Me, "btnHelpMore", {.At = {606, 378, 22, 22}}};
Image btnHelpLess{Me, "btnHelpLess", {.At = {732, 378, 22, 22}}};
MenuBar Menu{Me, menuBeforeProject};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 1);
        Menu.mnuTools.Visible = false;
        hlpProjName.Picture = PictureOf("btnHelp.jpg");
        hlpDomainName.Picture = PictureOf("btnHelp.jpg");
        txtProjName.SetFocus();
    });
}

// Takes the lowest number without a project directory. Gaps are filled; a store directory alone doesn't count.
static void TakeProjectNumber()
{
    ProjectNumber = "0001";
    std::int16_t counter = 2;
    while (ifDirExists(InProgramDir(ProjectNumber + "\\"))) {
        ProjectNumber = PadNumberLeft(counter, 4);
        counter = Count16(counter + 1);
    }
}

static void MakeProjectDir(const Text &theDir)
{
    // Deliberate: CreateDirectories returns true even if it fails, so these lines are never shown.
    if (!CreateDirectories(theDir))
        ShowMessageLines(
            // Deliberate: "occured" is spelled so.
            {"An error occured while trying to create the directory:", theDir, "", "btnNext_Click.frmCreate"});
}

void btnNext_Click()
{
    Trap([] {
        if (txtProjName.Text == "") {
            ShowHelpBox(Me, "Project Name",
                "You must enter a name for your project to continue.  This is the name your project will be "
                "saved under for future use.  You can make this name anything you desire but I recommend using "
                "your domain name.");
            return;
        }
        if (txtDomainName.Text == "") {
            RefuseEmptyDomain(Me);
            return;
        }
        ProjectName = txtProjName.Text;
        // Deliberate: the result may be empty; only the text as typed is tested.
        DomainName = CleanDomain(txtDomainName.Text);
        TakeProjectNumber();
        MakeProjectDir(InProgramDir(ProjectNumber + "\\"));
        MakeProjectDir(InProgramDir(ProjectNumber + "_store\\"));
        PrintToFile(InStoreDir(ProjectNumber + ".name"), ProjectName + "[]");
        PrintToFile(InStoreDir(ProjectNumber + ".dom"), DomainName + "[]");
        CloseHelpBoxIfOpen(Me);
        ProjectMode = "create";
        frmDirectory::Me.Show();
        Me.Unload();
    });
}

void btnBack_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmLoadCreate::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmCreate
