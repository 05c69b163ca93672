#include "wizard/frmMenu.h"
#include "core/FileHandle.h"
#include "core/Support.h"
#include "core/Trap.h"
#include "report/frmHelp.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmLoadCreate.h"

namespace frmMenu
{
void Form_Load(), btnFerncastle_Click(), btnFAQ_Click(), btnContact_Click();

Form Me{"frmMenu", {.Load = Form_Load}};
Label lblTitle{Me, "lblTitle", {.At = {24, 12, 380, 24}, .Caption = "Main Menu", .Style = TextStyle::Title}};
Image btnFerncastle{Me, "btnFerncastle",
    {.At = {18, 70, 100, 84}, .AccessibleName = "Start Ferncastle", .As = Role::Tile, .Click = btnFerncastle_Click}};
Image imgTitle{Me, "imgTitle",
    {.At = {136, 74, 260, 40}, .AccessibleName = "Ferncastle", .As = Role::Repeat, .Click = btnFerncastle_Click}};
Label Label1{Me, "Label1",
    {.At = {136, 118, 400, 20},
        .Caption = "Boost your site's size, relevance, and ranking!",
        .Click = btnFerncastle_Click}};
HelpTopic hlpFerncastle{Me, "hlpFerncastle", {404, 83}, "Ferncastle",
    "Click Ferncastle to launch the program and get your site beefed up and optimized!  I'll take you through it one "
    "screen at a time: you create a project or load one, show me where the local copy of your site is, and give me "
    "your keywords.  Then I build a bigger copy of your site in a folder of its own beside the program.  Your own "
    "files are only read, never changed."};
Image btnFAQ{
    Me, "btnFAQ", {.At = {18, 169, 100, 84}, .AccessibleName = "FAQ", .As = Role::Tile, .Click = btnFAQ_Click}};
Label Label2{
    Me, "Label2", {.At = {136, 186, 260, 22}, .Caption = "FAQ", .Style = TextStyle::SubTitle, .Click = btnFAQ_Click}};
Label Label3{Me, "Label3",
    {.At = {136, 212, 400, 20}, .Caption = "Find answers to Frequently Asked Questions here.", .Click = btnFAQ_Click}};
HelpTopic hlpFAQ{Me, "hlpFAQ", {404, 186}, "FAQ",
    "Clicking this option will give you a list of the most Frequently Asked Questions regarding this software.  It "
    "opens the support site in a browser window, so you'll need to be connected to the internet.  This menu stays open "
    "behind it, and you can close the browser and come straight back whenever you've read enough.  If your question "
    "isn't on the list, try Support below."};
Image btnContact{Me, "btnContact",
    {.At = {18, 269, 100, 84}, .AccessibleName = "Support", .As = Role::Tile, .Click = btnContact_Click}};
Label Label4{Me, "Label4",
    {.At = {136, 280, 260, 22}, .Caption = "Support", .Style = TextStyle::SubTitle, .Click = btnContact_Click}};
Label Label5{Me, "Label5",
    {.At = {136, 306, 400, 38},
        .Caption = "Need a hand?  Come talk to me or find out more about the software.",
        .Click = btnContact_Click}};
HelpTopic hlpContact{Me, "hlpContact", {404, 280}, "Support / Contact",
    "This is here in case you need help or need to contact the maker of Ferncastle.  It opens the contact page of the "
    "support site in a browser window, and this menu waits behind it.  When you write to me, please tell me which "
    "screen you were on, what you clicked and what happened then.  That way I can help you a lot faster."};
HelpFrame Help{Me};
MenuBar Menu{Me, menuBeforeProject};

void Form_Load()
{
    Trap([] {
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
        Menu.mnuTools.Visible = false;
        imgTitle.Picture = PictureOf("title_sm.jpg");
        btnFerncastle.Picture = PictureOf("mnuFerncastle.jpg");
        btnFAQ.Picture = PictureOf("mnuFAQ.jpg");
        btnContact.Picture = PictureOf("mnuContact.jpg");
        hlpFerncastle.Picture = PictureOf("btnHelp.jpg");
        hlpFAQ.Picture = PictureOf("btnHelp.jpg");
        hlpContact.Picture = PictureOf("btnHelp.jpg");
    });
}

void btnFerncastle_Click()
{
    Trap([] {
        CloseHelpBoxIfOpen(Me);
        frmLoadCreate::Me.Show();
        Me.Unload();
    });
}

// This screen stays open behind the browser.
static void OpenSupportPage(const Text &thePath)
{
    frmHelp::Me.Show();
    frmHelp::FinalReportBrowser.Navigate(SupportSite + thePath);
}

void btnFAQ_Click()
{
    Trap([] { OpenSupportPage("/help"); });
}

void btnContact_Click()
{
    Trap([] { OpenSupportPage("/contact"); });
}
}  // namespace frmMenu
