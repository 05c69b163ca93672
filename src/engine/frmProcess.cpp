#include "engine/frmProcess.h"
#include "core/FileHandle.h"
#include "core/SaveLoad.h"
#include "core/Trap.h"
#include "disk/Files.h"
#include "engine/SiteWalk.h"
#include "engine/frmTheFile.h"
#include "report/GenerateReport.h"
#include "report/frmGeneratingReport.h"
#include "report/frmReport.h"
#include "toolkit/Pickers.h"
#include "wizard/HelpBox.h"
#include "wizard/ScreenLook.h"

namespace frmProcess
{
void Form_Load(), Timer1_Timer(), Timer2_Timer(), Dir1_Change();
void btnPause_Click(), btnResume_Click(), btnCancel_Click();

Form Me{"frmProcess", {.Load = Form_Load}};
MenuBar Menu{Me, fullMenu};
Label lblTitle{Me, "lblTitle", {.At = {24, 12, 380, 24}, .Caption = "Expanding Your Site", .Style = TextStyle::Title}};

Label Label2{Me, "Label2", {.At = {24, 58, 130, 18}, .Caption = "Project Name:", .Style = TextStyle::Dim}};
Label lblProjName{Me, "lblProjName", {.At = {158, 58, 418, 18}, .Style = TextStyle::Value}};
Label Label3{Me, "Label3", {.At = {24, 78, 130, 18}, .Caption = "Original site:", .Style = TextStyle::Dim}};
Label lblOrigSiteDir{Me, "lblOrigSiteDir", {.At = {158, 78, 418, 18}, .Style = TextStyle::Value}};
Label Label4{Me, "Label4", {.At = {24, 98, 130, 18}, .Caption = "New site:", .Style = TextStyle::Dim}};
Label lblNewSiteDir{Me, "lblNewSiteDir", {.At = {158, 98, 418, 18}, .Style = TextStyle::Value}};
Label Label5{Me, "Label5", {.At = {24, 118, 130, 18}, .Caption = "Domain name:", .Style = TextStyle::Dim}};
Label lblDomainName{Me, "lblDomainName", {.At = {158, 118, 418, 18}, .Style = TextStyle::Value}};
Label Label6{Me, "Label6", {.At = {24, 138, 130, 18}, .Caption = "Total Keywords:", .Style = TextStyle::Dim}};
Label lblTotalKeywords{Me, "lblTotalKeywords", {.At = {158, 138, 418, 18}, .Style = TextStyle::Value}};
Label Label7{Me, "Label7", {.At = {24, 164, 130, 18}, .Caption = "Current file:", .Style = TextStyle::Dim}};
Label lblCurrentFile{
    Me, "lblCurrentFile", {.At = {158, 164, 418, 18}, .Caption = "CurrentFile.htm", .Style = TextStyle::Value}};

Label Label8{Me, "Label8", {.At = {24, 204, 130, 18}, .Caption = "Files Processed"}};
Label lblFilesCnt{Me, "lblFilesCnt", {.At = {158, 198, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpFilesProcessed{Me, "hlpFilesProcessed", {258, 202}, "Files Processed",
    "This is a count of how many of your sites pages have been processed so far."};
Label Label9{Me, "Label9", {.At = {24, 244, 130, 18}, .Caption = "Pages Added"}};
Label lblPagesAdded{Me, "lblPagesAdded", {.At = {158, 238, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpPagesAdded{Me, "hlpPagesAdded", {258, 242}, "Pages Added",
    "This is a count of how many pages have been created, referenced, and added to your site's "
    "structure."};
Label Label10{Me, "Label10", {.At = {24, 284, 130, 18}, .Caption = "Keywords Added"}};
Label lblKeywordsAdded{Me, "lblKeywordsAdded", {.At = {158, 278, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpKeywordsAdded{Me, "hlpKeywordsAdded", {258, 282}, "Keywords Added",
    "This is the total number of your chosen keywords that have been interspersed throughout your "
    "site.\r\n\r\nThis greatly increases your keyword density, and therefore all of your site's pages "
    "will have a higher page rank priority."};
Label Label11{Me, "Label11", {.At = {24, 324, 130, 18}, .Caption = "Internal Links"}};
Label lblLinksInternalCnt{
    Me, "lblLinksInternalCnt", {.At = {158, 318, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpLinksInternal{Me, "hlpLinksInternal", {258, 322}, "Internal Links",
    "Here is the number of internal links that have been found on your site.  Each one creates a new "
    "page for your site that is visually identical to the file that the link references.  The main "
    "difference is that the new filename and file contents contain many more of your chosen keywords."};
Label Label12{Me, "Label12", {.At = {320, 204, 130, 18}, .Caption = "External Links"}};
Label lblLinksExternalCnt{
    Me, "lblLinksExternalCnt", {.At = {454, 198, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpLinksExternal{Me, "hlpLinksExternal", {554, 202}, "External Links",
    "This is the number of links found on your site that link a visitor to a destination that is not "
    "on your site."};
Label Label13{Me, "Label13", {.At = {320, 244, 130, 18}, .Caption = "Broken Links"}};
Label lblLinksBrokenCnt{
    Me, "lblLinksBrokenCnt", {.At = {454, 238, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic hlpLinksBroken{Me, "hlpLinksBroken", {554, 242}, "Broken Links",
    "Ferncastle has found this many broken links on your site.  You can see details regarding these "
    "links in the report that is generated upon completion of the expansion process."};
Label Label14{Me, "Label14", {.At = {320, 284, 130, 18}, .Caption = "Media Files"}};
Label lblMediaFilesFound{
    Me, "lblMediaFilesFound", {.At = {454, 278, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic Image1{Me, "Image1", {554, 282}, "Media Files",
    "This is a count of how many media files are on your site.  Examples of media files are any "
    "images, movies, audio files, zipped files, etc."};
Label Label15{Me, "Label15", {.At = {320, 324, 130, 18}, .Caption = "Media Links"}};
Label lblLinksMedia{Me, "lblLinksMedia", {.At = {454, 318, 92, 30}, .Caption = "0", .Style = TextStyle::Counter}};
HelpTopic Image2{Me, "Image2", {554, 322}, "Media Links",
    "Here you'll find a number that represents how many media files on your site to which you have "
    "made links for your visitors."};

// Two pairs of buttons, each on one spot.
Image btnPause{Me, "btnPause",
    {.At = {362, 372, 104, 34}, .AccessibleName = "Pause", .As = Role::Primary, .Click = btnPause_Click}};
Image btnResume{Me, "btnResume",
    {.At = {362, 372, 104, 34}, .AccessibleName = "Resume", .Visible = false, .Click = btnResume_Click}};
Image btnCancel{Me, "btnCancel",
    {.At = {472, 372, 104, 34}, .AccessibleName = "Cancel", .As = Role::Cancel, .Click = btnCancel_Click}};
Image btnReport{Me, "btnReport",
    {.At = {472, 372, 104, 34}, .AccessibleName = "Report", .Visible = false, .Click = btnReport_Click}};
HelpFrame Help{Me};

DirList Dir1{Me, "Dir1", {.Change = Dir1_Change}};
FileList File1{Me, "File1", {}};
Timer Timer1{Me, "Timer1", {.Interval = 1, .Enabled = false, .Tick = Timer1_Timer}};
Timer Timer2{Me, "Timer2", {.Interval = 100, .Enabled = false, .Tick = Timer2_Timer}};
std::int16_t resumeFlag = 0;  // 1 ends a pause

// Has no trap: a failure goes to the caller, which then does not show the screen.
void Form_Load()
{
    ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
    RefreshMasterKeywordList();
    frmTheFile::Me.Width = FormWidth;
    frmTheFile::Me.Height = FormHeight;
    btnCancel.Picture = PictureOf("btnCancel.jpg");
    btnPause.Picture = PictureOf("btnPause.jpg");
    btnResume.Picture = PictureOf("btnResume.jpg");
    btnReport.Picture = PictureOf("btnReport.jpg");
    Dir1.Visible = false;
    File1.Visible = false;
    lblProjName.Caption = ProjectName;
    lblOrigSiteDir.Caption = LocalSiteDir;
    lblNewSiteDir.Caption = InProgramDir(ProjectNumber + "\\");
    lblDomainName.Caption = DomainName;
    lblTotalKeywords.Caption = std::to_string(KeywordTotal);
    LinksInternalCnt = 0;
    FilesProcessedCnt = 0;
    RunSpareCnt = 0;
    Timer1.Enabled = true;
    // Tested first, since a failure here would end the program: a help spot without its picture must not cost the run.
    if (ifFileExists(InProgramDir("imgs\\btnHelp.jpg")))
        for (Image *help : std::initializer_list<Image *>{&hlpFilesProcessed, &hlpPagesAdded, &hlpKeywordsAdded,
                 &hlpLinksInternal, &hlpLinksExternal, &hlpLinksBroken, &Image1, &Image2})
            help->Picture = PictureOf("btnHelp.jpg");
}

// Has no trap, like the walk that it runs.
void Timer1_Timer()
{
    Me.CloseRefused = true;
    RefuseOwnProject(LocalSiteDir);
    Dir1.Path = LocalSiteDir;
    File1.Path = LocalSiteDir;
    for (const char *name :
        {"ExternalLinksFiles.sav", "ExternalLinksLinks.sav", "BrokenLinksFiles.sav", "BrokenLinksLinks.sav"})
        if (const Text file = InStoreDir(name); ifFileExists(file))
            Files::Delete(file);
    SiteWalk();
    // Deliberate: a cancelled walk gets its report too.
    Timer1.Enabled = false;
    btnReport.Visible = true;
    btnPause.Visible = false;
    btnResume.Visible = false;
    btnCancel.Visible = false;
    btnReport_Click();
}

void Timer2_Timer()
{
    Trap([] {
        // Deliberate: the meter moves once more after the report is finished.
        if (ReportFinished)
            Timer2.Enabled = false;
        frmGeneratingReport::ShowMeter(frmGeneratingReport::Frame1, frmGeneratingReport::Shape1);
    });
}

void Dir1_Change()
{
    Trap([] { File1.Path = Dir1.Path; });
}

static bool MustStop()
{
    return CancelRequested || PauseAbortFlag;
}

void btnPause_Click()
{
    Trap([] {
        if (!MustStop())
            btnResume.Visible = true;
        btnPause.Visible = false;
        resumeFlag = 0;
        while (resumeFlag != 1) {
            WaitEvents();
            if (MustStop())
                resumeFlag = 1;
        }
        if (!MustStop())
            btnPause.Visible = true;
        btnResume.Visible = false;
    });
}

void btnResume_Click()
{
    Trap([] { resumeFlag = 1; });
}

void btnCancel_Click()
{
    Trap([] { CancelRequested = true; });
}

void btnReport_Click()
{
    Trap([] {
        GenerateReport();
        // frmHelp may have loaded it, hidden, before the report existed. Loading it again makes it open this report.
        if (!frmReport::Me.Visible)
            frmReport::Me.Unload();
        frmReport::Me.Show();
        frmGeneratingReport::Me.Unload();
        Me.Unload();
    });
    // When no report could be made, both screens stay. The user can then close their windows, and no tick of Timer2
    // loads the other screen again.
    if (Me.Visible && !ReportFinished) {
        Timer2.Enabled = false;
        Me.CloseRefused = frmGeneratingReport::Me.CloseRefused = false;
    }
}

}  // namespace frmProcess
