#include "wizard/frmWelcome.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmMenu.h"

namespace frmWelcome
{
void Form_Load(), chkHideWelcome_Click(), btnNext_Click();

Form Me{"frmWelcome", {.Load = Form_Load}};
Label lblTitle{Me, "lblTitle", {.At = {24, 12, 380, 24}, .Caption = "Welcome", .Style = TextStyle::Title}};
Label Label1{Me, "Label1", {.At = {24, 92, 400, 22}, .Caption = "Welcome to", .Style = TextStyle::SubTitle}};
Image imgTitle{Me, "imgTitle", {.At = {24, 124, 420, 96}, .AccessibleName = "Ferncastle"}};
// Deliberate: "the number of page" is part of the text.
HelpTopic hlpWelcome{Me, "hlpWelcome", {554, 161}, "Ferncastle",
    "Ferncastle is dedicated to getting more search engine attention to your site by employing several methods.  First "
    "of all it's going to increase the size of your site by roughly the number of pages your site contains multiplied "
    "by the average number of internal links on each page, plus the number of page on your site by using a new "
    "technology I've come up with that is based on the idea of modern cloakers, but goes several steps further.  The "
    "method uses random number generation and your site's keywords to generate truly unique and context-rich filenames "
    "for your site.  It also parses your files and increases your keyword density behind the scenes.  And the best "
    "part is, it's all done completely behind-the-scenes.  Neither you nor your visitors will notice any apparent "
    "change to your site (except, of course, your increased page-rank and sales!)"};
Label Label2{Me, "Label2",
    {.At = {24, 230, 400, 22}, .Caption = "website expander and enhancer.", .Style = TextStyle::SubTitle}};
CheckBox chkHideWelcome{Me, "chkHideWelcome",
    {.At = {24, 329, 330, 22},
        .AccessibleName = "Don't show this Welcome Screen in the future",
        .Click = chkHideWelcome_Click}};
Label Label3{Me, "Label3", {.At = {50, 330, 400, 20}, .Caption = "Don't show this Welcome Screen in the future"}};
Image btnNext{
    Me, "btnNext", {.At = {484, 372, 92, 34}, .AccessibleName = "Next", .As = Role::Next, .Click = btnNext_Click}};
HelpFrame Help{Me};
// Deliberate: no item does anything on this screen.
MenuBar Menu{Me, {}};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 1, 0);
        imgTitle.Picture = PictureOf("title.jpg");
        hlpWelcome.Picture = PictureOf("btnHelp.jpg");
        btnNext.SetFocus();
    });
}

// Deliberate: the box starts unticked each time the screen is shown, whatever is saved.
void chkHideWelcome_Click()
{
    Trap([] { SaveVariable("ShowWelcome", chkHideWelcome.Value ? "0" : "1", 0); });
}

void btnNext_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmMenu::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmWelcome
