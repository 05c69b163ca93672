#include "wizard/frmQuillmark.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmConfirm.h"
#include "wizard/frmKeywordsHowMany.h"

namespace frmQuillmark
{
void Form_Load(), btnBack_Click(), btnNext_Click();

Form Me{"frmQuillmark", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Using Quillmark", .Style = TextStyle::Title}};
CheckBox chkUsingQuillmark{
    Me, "chkUsingQuillmark", {.At = {24, 62, 178, 22}, .AccessibleName = "I am using Quillmark"}};
Label Label2{Me, "Label2", {.At = {54, 64, 150, 18}, .Caption = "I am using Quillmark"}};
HelpTopic hlpTitle{Me, "hlpTitle", {212, 62}, "Using Quillmark",
    "Quillmark, like Ferncastle, is a tool that helps your site get noticed by search engines, and the two get along "
    "well.  With the box checked, the words in your new file names are drawn from a dictionary, and your keywords are "
    "kept out of them and left for Quillmark to use.  With the box unchecked, the new file names carry your own "
    "keywords.  If you have never heard of Quillmark, leave it unchecked."};
Label lblDesc{Me, "lblDesc", {.At = {24, 104, 516, 144}}};
Image btnBack{
    Me, "btnBack", {.At = {24, 372, 92, 34}, .AccessibleName = "Back", .As = Role::Back, .Click = btnBack_Click}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me};
MenuBar Menu{Me, fullMenu};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 1);
        hlpTitle.Picture = PictureOf("btnHelp.jpg");
        UsingQuillmark = LoadVariable("UsingQuillmark", 1) == "True";
        chkUsingQuillmark.Value = UsingQuillmark;
        lblDesc.Caption =
            "If you are currently using or plan to use Quillmark to enhance your site, then make sure the above "
            "checkbox is checked.  The option will change file naming conventions to further support other "
            "optimization software.\r\n"
            "\r\n"
            "NOTE:  If you are not using Quillmark, then make sure the checkbox is UNchecked.  Keeping the box "
            "unchecked will greatly increase the keyword density of your site.";
    });
}

static void SaveChoice()
{
    UsingQuillmark = chkUsingQuillmark.Value;
    SaveVariable("UsingQuillmark", UsingQuillmark ? "True" : "False", 1);
}

void btnBack_Click()
{
    Trap([] {
        SaveChoice();
        CloseHelpBoxIfOpen(Me);
        frmKeywordsHowMany::Me.Show();
        Me.Unload();
    });
}

void btnNext_Click()
{
    Trap([] {
        SaveChoice();
        // Deliberate: the help box is left as it is.
        frmConfirm::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmQuillmark
