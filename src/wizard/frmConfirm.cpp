#include "wizard/frmConfirm.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmDoItAlready.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmQuillmark.h"

namespace frmConfirm
{
void Form_Load(), btnBack_Click(), btnExpand_Click();

Form Me{"frmConfirm", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Confirm your information", .Style = TextStyle::Title}};
Label Label2{Me, "Label2", {.At = {24, 62, 196, 18}, .Caption = "Project Name:"}};
Label lblProjName{Me, "lblProjName", {.At = {226, 58, 350, 26}, .Style = TextStyle::Value}};
Label Label3{Me, "Label3", {.At = {24, 93, 196, 18}, .Caption = "Site location to be expanded:"}};
Label lblOrigSiteDir{Me, "lblOrigSiteDir", {.At = {226, 89, 350, 26}, .Style = TextStyle::Value}};
Label Label4{Me, "Label4", {.At = {24, 124, 196, 18}, .Caption = "Your new site will be stored in:"}};
Label lblNewSiteDir{Me, "lblNewSiteDir", {.At = {226, 120, 350, 26}, .Style = TextStyle::Value}};
Label Label5{Me, "Label5", {.At = {24, 155, 196, 18}, .Caption = "Domain name to be used:"}};
Label lblDomainName{Me, "lblDomainName", {.At = {226, 151, 350, 26}, .Style = TextStyle::Value}};
Label Label7{Me, "Label7", {.At = {24, 186, 196, 18}, .Caption = "Total Keywords:"}};
Label lblTotalKeywords{Me, "lblTotalKeywords", {.At = {226, 182, 350, 26}, .Style = TextStyle::Value}};
Label lblKeywordList{Me, "lblKeywordList", {.At = {24, 217, 196, 18}, .Caption = "Your Master Keyword List:"}};
ListBox lstKeywords{Me, "lstKeywords", {.At = {226, 213, 350, 144}, .AccessibleName = "Your Master Keyword List"}};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnExpand{Me, "btnExpand",
    {.At = {388, 371, 188, 36}, .AccessibleName = "Expand my site", .As = Role::Primary, .Click = btnExpand_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, fullMenu};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 1);
        btnExpand.Picture = PictureOf("btnExpand.jpg");
        // Deliberate: shows the count that frmKeywords left; the key file is counted only afterwards.
        lblTotalKeywords.Caption = std::to_string(KeywordTotal);
        KeywordTotal = 0;
        frmKeywords::LoadThoseKeywords(lstKeywords, ProjectNumber);
        lblProjName.Caption = ProjectName;
        lblOrigSiteDir.Caption = LocalSiteDir;
        lblNewSiteDir.Caption = InProgramDir(ProjectNumber + "\\");
        lblDomainName.Caption = DomainName;
    });
}

void btnBack_Click()
{
    Trap([] {
        // Deliberate: neither way out of this screen closes the help box.
        frmQuillmark::Me.Show();
        Me.Unload();
    });
}

void btnExpand_Click()
{
    Trap([] {
        frmDoItAlready::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmConfirm
