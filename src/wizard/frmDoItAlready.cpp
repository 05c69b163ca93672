#include "wizard/frmDoItAlready.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "engine/frmProcess.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmConfirm.h"

namespace frmDoItAlready
{
void Form_Load(), btnBack_Click(), btnDoItAlready_Click();

Form Me{"frmDoItAlready", {.Load = Form_Load}};
Label Label1{
    Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Go Ahead and Expand the Site", .Style = TextStyle::Title}};
Image btnDoItAlready{Me, "btnDoItAlready",
    {.At = {166, 112, 268, 110},
        .AccessibleName = "Expand the site",
        .As = Role::Primary,
        .Click = btnDoItAlready_Click}};
Label Label2{Me, "Label2", {.At = {24, 242, 196, 18}, .Caption = "Project Name:"}};
Label lblProjName{Me, "lblProjName", {.At = {226, 238, 350, 26}, .Style = TextStyle::Value}};
Label Label3{Me, "Label3", {.At = {24, 272, 196, 18}, .Caption = "Site location to be expanded:"}};
Label lblOrigSiteDir{Me, "lblOrigSiteDir", {.At = {226, 268, 350, 26}, .Style = TextStyle::Value}};
Label Label4{Me, "Label4", {.At = {24, 302, 196, 18}, .Caption = "Your new site will be stored in:"}};
Label lblNewSiteDir{Me, "lblNewSiteDir", {.At = {226, 298, 350, 26}, .Style = TextStyle::Value}};
Label Label7{Me, "Label7", {.At = {24, 332, 196, 18}, .Caption = "Total Keywords:"}};
Label lblTotalKeywords{Me, "lblTotalKeywords", {.At = {226, 328, 350, 26}, .Style = TextStyle::Value}};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
// Deliberate: it has neither a picture nor a topic, so it is invisible.
Image btnHelp1{Me, "btnHelp1", {.At = {554, 60, 22, 22}}};
HelpFrame Help{Me};
MenuBar Menu{Me, fullMenu};

void Form_Load()
{
    Trap([] {
        // A start that skipped Init_Vars leaves the sizes at 0.
        if (FormHeight == 0) {
            FormWidth = 640;
            FormHeight = 420;
        }
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 1);
        btnDoItAlready.Picture = PictureOf("btnDoItAlready.jpg");
        btnDoItAlready.Left = 166;
        btnDoItAlready.Top = 112;
        lblProjName.Caption = ProjectName;
        lblOrigSiteDir.Caption = LocalSiteDir;
        lblNewSiteDir.Caption = InProgramDir(ProjectNumber + "\\");
        lblTotalKeywords.Caption = std::to_string(KeywordTotal);
    });
}

void btnBack_Click()
{
    Trap([] {
        // Deliberate: neither way out of this screen closes the help box.
        frmConfirm::Me.Show();
        Me.Unload();
    });
}

void btnDoItAlready_Click()
{
    Trap([] {
        frmProcess::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmDoItAlready
