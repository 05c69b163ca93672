#include "report/frmGeneratingReport.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/HelpBox.h"
#include "wizard/MenuBar.h"
#include "wizard/ScreenLook.h"

namespace frmGeneratingReport
{
void Form_Load(), Timer1_Timer();

// A row of the list of steps: its tick and its caption.
static Face TickAt(double theTop, const Text &AccessibleName)
{
    return {.At = {56, theTop, 32, 32}, .AccessibleName = AccessibleName};
}
static Face CaptionAt(double theTop, const Text &theCaption)
{
    return {.At = {102, theTop + 7, 300, 20}, .Caption = theCaption};
}

Form Me{"frmGeneratingReport", {.Load = Form_Load}};
// Deliberate: no item does anything on this screen.
MenuBar Menu{Me, {}};
Label Label1{Me, "Label1", {.At = {24, 12, 380, 24}, .Caption = "Generating Report", .Style = TextStyle::Title}};
Label Label2{Me, "Label2",
    {.At = {24, 56, 552, 20}, .Caption = "Finalizing process and generating report", .Style = TextStyle::SubTitle}};
Label lblDesc{Me, "lblDesc", {.At = {24, 80, 552, 54}}};

Image chkboxLinksExt{Me, "chkboxLinksExt", TickAt(140, "Step 1")};
Label lblLinksExt{Me, "lblLinksExt", CaptionAt(140, "External Links Report")};
// Deliberate: "awayfrom" and the entities are part of the text.
HelpTopic hlpLinksExt{Me, "hlpLinksExt", {412, 145}, "External Links",
    "Any external links will take your visitor awayfrom your site and whisk them away to somewhere else on the "
    "internet.  From a sales standpoint, this is a bad idea.&nbsp; From search engines' points of view, your page rank "
    "for any page containing external links will decrease.&nbsp; It's a good idea to keep external links to a "
    "minimum."};
Image chkboxLinksBrk{Me, "chkboxLinksBrk", TickAt(177, "Step 2")};
Label lblLinksBrk{Me, "lblLinksBrk", CaptionAt(177, "Broken Links Report")};
HelpTopic hlpLinksBrk{Me, "hlpLinksBrk", {412, 182}, "Broken Links",
    "Broken links are ones that can't find the target location or file to which you are trying to link your visitor.  "
    "Having no broken links on your site is imperative for producing and maintaining a positive visitor "
    "experience.\r\n\r\nFerncastle's detailed report will show you exactly how many and where all of your broken links "
    "are located."};
Image chkboxMediaReport{Me, "chkboxMediaReport", TickAt(214, "Step 3")};
Label lblMedia{Me, "lblMedia", CaptionAt(214, "Media Report")};
HelpTopic hlpMedia{Me, "hlpMedia", {412, 219}, "Media Report",
    "Ferncastle is compiling some basic details about the media content of your site.  It will list the number and "
    "types of images, audio files, video files, etc."};
Image chkboxStatGen{Me, "chkboxStatGen", TickAt(251, "Step 4")};
Label lblStatGen{Me, "lblStatGen", CaptionAt(251, "Statistics Generation")};
HelpTopic hlpStatGen{Me, "hlpStatGen", {412, 256}, "Statistics",
    "This software will report to you a broad range of useful information regarding the expansion and overall "
    "enhancement of your website.  Details include a comprehensive media file report; internal, external, and broken "
    "links; a tally of pages added to your site; how many keywords were added to your site; and more."};
Image chkboxRouteNav{Me, "chkboxRouteNav", TickAt(288, "Step 5")};
Label lblRouteNav{Me, "lblRouteNav", CaptionAt(288, "Routing Navigation")};
HelpTopic hlpRouteNav{Me, "hlpRouteNav", {412, 293}, "Route Navigation",
    "This final step insures that your site's images will be viewable and that the navigation system is intact and "
    "functioning properly."};

Frame Frame1{Me, "Frame1", {.At = {Twips(840), Twips(4920), Twips(6375), Twips(495)}}};
Shape Shape1{Frame1, "Shape1", {.At = {Twips(30), Twips(120), Twips(615), Twips(330)}}};
Timer Timer1{Me, "Timer1", {.Interval = 100, .Enabled = false, .Tick = Timer1_Timer}};
HelpFrame Help{Me};

void Form_Load()
{
    Trap([] {
        // The user can't close it; it closes when the report is finished.
        Me.CloseRefused = true;
        ApplyScreenLook(Me, "bg_main01.jpg", 0, 0);
        // Set again because ApplyScreenLook stops at a missing picture.
        Me.Height = FormHeight;
        Me.Width = FormWidth;
        Me.Caption = AppTitle;
        Me.Picture = PictureOf("bg_main01.jpg");
        chkboxLinksExt.Picture = PictureOf("chkbox01.jpg");
        chkboxLinksBrk.Picture = PictureOf("chkbox02.jpg");
        chkboxMediaReport.Picture = PictureOf("chkbox03.jpg");
        chkboxStatGen.Picture = PictureOf("chkbox04.jpg");
        chkboxRouteNav.Picture = PictureOf("chkbox05.jpg");
        hlpLinksExt.Picture = PictureOf("btnHelp.jpg");
        hlpLinksBrk.Picture = PictureOf("btnHelp.jpg");
        hlpMedia.Picture = PictureOf("btnHelp.jpg");
        hlpStatGen.Picture = PictureOf("btnHelp.jpg");
        hlpRouteNav.Picture = PictureOf("btnHelp.jpg");
        lblDesc.Caption = Text("Please be patient.") + CRLF +
                          "If there is a large number of external and/or broken links, the report will take a little "
                          "extra time to finish.";
        Me.Show();
        Timer1.Enabled = true;
    });
}

void ShowMeter(Frame &theFrame, Shape &theBox)
{
    Trap([&] {
        if (theFrame.Width - Twips(25) <= theBox.Left)
            theBox.Left = theBox.Width * 0.6 * -1;
        else
            theBox.Left = theBox.Left + theBox.Width / 4;
    });
}

void Timer1_Timer()
{
    Trap([] {
        if (ReportFinished)
            Timer1.Enabled = false;  // Deliberate: the box still moves one last time.
        ShowMeter(Frame1, Shape1);
        DoEvents();
    });
}
}  // namespace frmGeneratingReport
