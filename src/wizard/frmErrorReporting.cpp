#include "wizard/frmErrorReporting.h"
#include "core/FileHandle.h"
#include "core/Support.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"

namespace frmErrorReporting
{
void Form_Load(), btnDone_Click();

static const char *const sendItTo = "To report an error, please send any pertinent information to ";

Form Me{"frmErrorReporting", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Reporting Errors", .Style = TextStyle::Title}};
Label lblDetails{Me, "lblDetails", {.At = {24, 62, 350, 72}}};
HelpTopic hlpTitle{Me, "hlpTitle", {390, 60}, "Error Reporting",
    Text(sendItTo) + SupportMail +
        ".  Tell me which screen you were on, what you clicked and the exact words of any message you saw.  The "
        "version number on the start screen helps too, and so does a page of your site on which the error shows.  I "
        "read every report, and the more I know, the sooner I can find out what went wrong."};
Image btnDone{
    Me, "btnDone", {.At = {484, 372, 92, 34}, .AccessibleName = "Done", .As = Role::Primary, .Click = btnDone_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, {.About = true}};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
        hlpTitle.Picture = PictureOf("btnHelp.jpg");
        btnDone.Picture = PictureOf("btnDone.jpg");
        Menu.mnuTools.Visible = false;
        Menu.mnuOptions.Visible = false;
        Menu.optHelp_ReportingErrors.Visible = false;
        lblDetails.Caption = Text(sendItTo) + SupportMail + ".";
    });
}

void btnDone_Click()
{
    Trap([] { Me.Unload(); });
}
}  // namespace frmErrorReporting
