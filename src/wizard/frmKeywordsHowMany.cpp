#include "wizard/frmKeywordsHowMany.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmKeywords.h"
#include "wizard/frmQuillmark.h"

namespace frmKeywordsHowMany
{
void Form_Load(), btnBack_Click(), btnNext_Click();

// Deliberate: the two blanks in "your site  by" are part of the text.
static Text Description(const Text &theNewFileName)
{
    return "As your site is expanded, Ferncastle will greatly increase your keyword density and the page rank of every "
           "page on your site  by making sure that all newly-created files will include a certain number of your "
           "keywords.  Enter the number of keywords-per-filename you'd like to use in the box to the left.\r\n"
           "\r\n"
           "Example using 3 keywords per filename:\r\n"
           "\r\n"
           "Your original filename is:\r\n"
           "contact.htm\r\n"
           "\r\n"
           "Your new filename might be:\r\n" +
           theNewFileName;
}

Form Me{"frmKeywordsHowMany", {.Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Keywords Per Filename", .Style = TextStyle::Title}};
Label Label2{Me, "Label2", {.At = {24, 62, 150, 36}, .Caption = "Number of keywords per file name:"}};
TextBox txtKeywordsPerFilename{Me, "txtKeywordsPerFilename",
    {.At = {24, 106, 92, 26}, .Caption = "3", .AccessibleName = "Number of keywords per file name"}};
Label lblDesc{Me, "lblDesc", {.At = {204, 62, 336, 290}}};
HelpTopic hlpTitle{
    Me, "hlpTitle", {124, 108}, "Keywords Per Filename", Description("451534-rates-refinance-mortgage.htm")};
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
        txtKeywordsPerFilename.Text = GATHERFROMFILE(InStoreDir("NumberOfKeywords.sav"));
        if (LowerText(txtKeywordsPerFilename.Text) == "filenotexist")
            txtKeywordsPerFilename.Text = "3";
        KeywordsPerFilename = NumberAtStart(txtKeywordsPerFilename.Text);
        // Deliberate: new names never begin with the old one; the help topic shows their real form.
        lblDesc.Caption = Description("contact-451534-rates-refinance-mortgage.htm");
    });
}

static void SaveNumber()
{
    KeywordsPerFilename = NumberAtStart(txtKeywordsPerFilename.Text);
    // Deliberate: the marker goes into the file twice; a reader stops at the first.
    SaveMarkedFile(InStoreDir("NumberOfKeywords.sav"), txtKeywordsPerFilename.Text + "[]", 1);
}

void btnBack_Click()
{
    Trap([] {
        SaveNumber();
        CloseHelpBoxIfOpen(Me);
        frmKeywords::Me.Show();
        Me.Unload();
    });
}

void btnNext_Click()
{
    Trap([] {
        SaveNumber();
        CloseHelpBoxIfOpen(Me);
        frmQuillmark::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmKeywordsHowMany
