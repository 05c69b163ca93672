#include "wizard/frmLoadCreate.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmCreate.h"
#include "wizard/frmLoad.h"
#include "wizard/frmMenu.h"

namespace frmLoadCreate
{
void Form_Load(), btnCreate_Click(), lblCreate1_Click(), btnLoad_Click(), lblLoad1_Click(), btnBack_Click();

Form Me{"frmLoadCreate", {.Load = Form_Load}};
Label lblTitle{Me, "lblTitle", {.At = {24, 12, 380, 24}, .Caption = "Load or Create Menu", .Style = TextStyle::Title}};
Image btnCreate{Me, "btnCreate",
    {.At = {27, 54, 248, 176}, .AccessibleName = "Create a new project", .As = Role::Card, .Click = btnCreate_Click}};
Label lblCreate1{Me, "lblCreate1",
    {.At = {45, 246, 180, 22}, .Caption = "Create", .Style = TextStyle::SubTitle, .Click = lblCreate1_Click}};
Label lblCreate2{Me, "lblCreate2",
    {.At = {45, 274, 212, 40}, .Caption = "a new Ferncastle website project", .Click = lblCreate1_Click}};
HelpTopic hlpCreate{Me, "hlpCreate", {235, 246}, "Create Project",
    "By choosing to create a new project, you can set up an expansion project for your site from the start.  You give "
    "it a name and tell me your domain name; then I'll ask where your local files are and which keywords you want.  "
    "Your choices are saved under a project number of its own as you go, so you can load the project later, change "
    "what you like and run it again."};
Image btnLoad{Me, "btnLoad",
    {.At = {325, 54, 248, 176},
        .AccessibleName = "Load an existing project",
        .As = Role::Card,
        .Click = btnLoad_Click}};
Label lblLoad1{Me, "lblLoad1",
    {.At = {343, 246, 180, 22}, .Caption = "Load", .Style = TextStyle::SubTitle, .Click = lblLoad1_Click}};
Label lblLoad2{Me, "lblLoad2",
    {.At = {343, 274, 212, 40}, .Caption = "an existing Ferncastle website project", .Click = btnLoad_Click}};
HelpTopic hlpLoad{Me, "hlpLoad", {533, 246}, "Load a Project",
    "Load an expansion project you have previously created.  You'll see a list of your projects and pick the one you "
    "want.  Its domain name, the location of your site, your keywords, their number and your Quillmark choice are "
    "filled in for you on the screens that follow.  You can change any of them before you run the expansion again.  If "
    "you haven't created a project yet, choose Create first."};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, menuBeforeProject};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_load.jpg", 0, 1);
        Menu.mnuTools.Visible = false;
        btnLoad.Picture = PictureOf("optLoad.jpg");
        btnCreate.Picture = PictureOf("optCreate.jpg");
        hlpLoad.Picture = PictureOf("btnHelp.jpg");
        hlpCreate.Picture = PictureOf("btnHelp.jpg");
    });
}

// Deliberate: only the first project's directory decides, however many others there are.
static void LoadIfThereIs(const Text &theDir)
{
    if (!ifDirExists(InProgramDir(theDir))) {
        MsgBox("You cannot load a project until you have first created one.");
        return;
    }
    CloseHelpBoxIfOpen(Me);
    frmLoad::Me.Show();
    Me.Unload();
}

void btnLoad_Click()
{
    Trap([] { LoadIfThereIs("0001"); });
}

// Deliberate: looks for another directory than btnLoad and lblLoad2 do.
void lblLoad1_Click()
{
    Trap([] { LoadIfThereIs("0001_store"); });
}

void btnCreate_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmCreate::Me.Show();
        Me.Unload();
    });
}

// Deliberate: unlike btnCreate, it doesn't close an open help box.
void lblCreate1_Click()
{
    Trap([] {
        frmCreate::Me.Show();
        Me.Unload();
    });
}

void btnBack_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmMenu::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmLoadCreate
