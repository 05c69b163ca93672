#include "wizard/frmAbout.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"

namespace frmAbout
{
void Form_Load(), btnDone_Click();

Form Me{"frmAbout", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "About", .Style = TextStyle::Title}};
Image imgLogo{Me, "imgLogo", {.At = {24, 96, 176, 176}, .AccessibleName = "Ferncastle"}};
Label lblDetails{Me, "lblDetails", {.At = {224, 100, 318, 180}}};
HelpTopic hlpTitle{Me, "hlpTitle", {224, 258}, "About",
    "Ferncastle software is dedicated to producing amazing results for your personal website or online business with "
    "regards to garnering tremendous attention from and ranking through the world's leading search engines.  It makes "
    "a bigger copy of your site, in which nearly every internal link leads to a page of its own, with words in its "
    "file name.  Your own files are never changed.  Click Done to go back to where you were."};
Image btnDone{
    Me, "btnDone", {.At = {484, 372, 92, 34}, .AccessibleName = "Done", .As = Role::Primary, .Click = btnDone_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, {.ReportingErrors = true}};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
        imgLogo.Picture = PictureOf("logoAbout.jpg");
        hlpTitle.Picture = PictureOf("btnHelp.jpg");
        btnDone.Picture = PictureOf("btnDone.jpg");
        Menu.mnuTools.Visible = false;
        Menu.mnuOptions.Visible = false;
        Menu.optHelp_About.Visible = false;
        lblDetails.Caption =
            "Ferncastle software is dedicated to producing amazing results for your personal website or online "
            "business with regards to garnering tremendous attention from (and higher ranking through) the world's "
            "leading search engines.\r\n"
            "\r\n"
            "This is done primarily by use of keyword-embedding technology and beefing up your site through added "
            "bulk.";
    });
}

void btnDone_Click()
{
    Trap([] { Me.Unload(); });
}
}  // namespace frmAbout
