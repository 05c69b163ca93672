#include "report/GenerateReport.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "engine/RouteNav.h"
#include "engine/URLHandle.h"
#include "engine/frmProcess.h"
#include "report/Records.h"
#include "report/frmGeneratingReport.h"

using frmLists::rtbReport;

// rtbReport holds the page being made. Its template is beside the program; the result goes to the store directory.
static Text TemplateOf(const Text &thePage)
{
    return InProgramDir(thePage + "_template.html");
}

static void LogMissingTemplate(const Text &thePage, const Text &theWhere)
{
    LogMessageLines({"", "The report template couldn't be found for project #" + ProjectNumber + ".",
        TemplateOf(thePage), theWhere});
}

static void LoadTemplate(const Text &thePage)
{
    rtbReport.Text = "";
    LoadFileIntoBox(TemplateOf(thePage), rtbReport);
}

// Deliberate: values are not escaped.
static void FillIn(const Text &theMarker, const Text &theValue)
{
    rtbReport.Text = ReplaceText(rtbReport.Text, theMarker, theValue);
}

// Deliberate: a page whose step is skipped stays as an earlier run left it, and nothing links to it.
static void ReplaceResult(const Text &thePage, const Text &theMarker = "", const TableRows &theRows = {})
{
    const Text result = InStoreDir(thePage + ".html");
    if (ifFileExists(result))
        Files::Delete(result);
    WriteTheReport(thePage, rtbReport, theMarker, theRows);
}

static Text DetailsLink(const Text &thePage)
{
    return "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp; <a href=\"" + thePage + ".html\">details</A>";
}

static void SetDone(Image &theTick)
{
    theTick.Picture = PictureOf("chkboxDone.jpg");
    PaintNow();
}

// Deliberate: compared as texts, not as numbers: any count that sorts after "0" passes.
static bool IsAboveZero(const Label &theCount)
{
    return theCount.Caption.Get() > "0";
}

static void MakeLinksPage(const Text &LinkType, const Text &thePage, const Text &theMarker)
{
    if (!ifFileExists(TemplateOf(thePage))) {
        LogMissingTemplate(thePage, LinkType + "Links-GenerateReport.frmProcess");
        return;
    }
    LoadTemplate(thePage);
    const TableRows rows = TabulateLinks(LinkType);
    ReplaceResult(thePage, theMarker, rows);
}

static Text MediaRow(int theRow)
{
    const Text &extension = frmLists::lstMediaExtensions.List(theRow);
    if (extension == "---")
        return Text("  <TR>") + CRLF + "    <TD COLSPAN=3>" + CRLF + "      <HR WIDTH=100%>" + CRLF + "    </TD>" +
               CRLF + "  </TR>" + CRLF;
    return TableRow({extension, frmLists::lstMediaFilesCnt.List(theRow), frmLists::lstMediaLinksCnt.List(theRow)});
}

static void MakeMediaPage()
{
    LoadTemplate("report_media");
    Text rows;
    const int count = frmLists::lstMediaExtensions.ListCount();
    for (int i = 0; i < count; ++i) {
        rows += MediaRow(i);
        DoEvents();
    }
    FillIn("<!--|||***MediaContent***|||-->", rows);
    ReplaceResult("report_media");
}

// The new site's directory, as a link to its index file if it has one.
static Text NewSiteValue()
{
    const Text newSite = frmProcess::lblNewSiteDir.Caption;
    const Text indexFile = ScanForAnIndexFile(InProgramDir(ProjectNumber + "\\"));
    if (indexFile.empty())
        return newSite;
    // Deliberate: without a project directory the link leads to "*err*3".
    return "<A HREF=\"" + indexFile + "\">" + newSite + "</A>";
}

static void MakeMainPage(
    const Text &newSite, const Text &brokenDetails, const Text &externalDetails, const Text &mediaDetails)
{
    LoadTemplate("report");
    // Deliberate: each marker is replaced in the whole page, so a marker inside an earlier value is replaced too.
    FillIn("<*thebackground*>", "../imgs/bg_report01.jpg");
    FillIn("<*report_title*>", "../imgs/report_title01.png");
    FillIn("<*reportdetails_title*>", "../imgs/title_project_details.png");
    FillIn("<*expdetails_title*>", "../imgs/title_exp_summary.png");
    FillIn("<!--lblProjectName-->", ProjectName);
    FillIn("<!--lblDomainName-->", DomainName);
    FillIn("<!--lblLocalSite-->", frmProcess::lblOrigSiteDir.Caption);
    FillIn("<!--lblNewSite-->", newSite);
    FillIn("<!--lblFilesProcessedCnt-->", frmProcess::lblFilesCnt.Caption);
    FillIn("<!--lblPagesAddedCnt-->", frmProcess::lblPagesAdded.Caption);
    // The label counts each keyword twice.
    FillIn("<!--lblKeywordsAddedCntHalf-->", NumberText(NumberAtStart(frmProcess::lblKeywordsAdded.Caption) / 2));
    FillIn("<!--lblKeywordsAddedCnt-->", frmProcess::lblKeywordsAdded.Caption);
    FillIn("<!--lblMediaFilesCnt-->", frmProcess::lblMediaFilesFound.Caption);
    FillIn("<!--lblLinksInternalCnt-->", frmProcess::lblLinksInternalCnt.Caption);
    FillIn("<!--lblLinksExternalCnt-->", frmProcess::lblLinksExternalCnt.Caption);
    FillIn("<!--lblLinksBrokenCnt-->", frmProcess::lblLinksBrokenCnt.Caption);
    FillIn("<!--lblLinksMediaCnt-->", frmProcess::lblLinksMedia.Caption);
    FillIn("<!--LinksBrokenDetails-->", brokenDetails);
    FillIn("<!--LinksExternalDetails-->", externalDetails);
    FillIn("<!--MediaDetails-->", mediaDetails);
    ReplaceResult("report");
}

// Has no trap: a failure ends in that of btnReport_Click; the remaining steps are not done and the meter keeps moving.
void GenerateReport()
{
    // Deliberate: a press of btnReport during a yield makes a second report inside the first and spoils the pages of
    // the first: both use the same text box, and the counts are gone by then.
    frmGeneratingReport::Me.Show();
    frmProcess::Timer2.Enabled = true;
    Text externalDetails, brokenDetails, mediaDetails;

    // Deliberate: both details links are set even if the template is missing and they lead nowhere.
    if (IsAboveZero(frmProcess::lblLinksExternalCnt)) {
        externalDetails = DetailsLink("report_linksexternal");
        MakeLinksPage("External", "report_linksexternal", "<!--|||***ExternalLinks***|||-->");
    }
    SetDone(frmGeneratingReport::chkboxLinksExt);

    if (IsAboveZero(frmProcess::lblLinksBrokenCnt)) {
        brokenDetails = DetailsLink("report_linksbroken");
        MakeLinksPage("Broken", "report_linksbroken", "<!--|||***BrokenLinks***|||-->");
    }
    SetDone(frmGeneratingReport::chkboxLinksBrk);

    if (ifFileExists(TemplateOf("report_media"))) {
        mediaDetails = DetailsLink("report_media");
        MakeMediaPage();
    } else
        LogMissingTemplate("report_media", "GenerateReport.frmProcess");
    SetDone(frmGeneratingReport::chkboxMediaReport);

    const Text newSite = NewSiteValue();
    if (ifFileExists(TemplateOf("report")))
        MakeMainPage(newSite, brokenDetails, externalDetails, mediaDetails);
    else
        LogMissingTemplate("report", "GenerateReport.frmProcess");
    SetDone(frmGeneratingReport::chkboxStatGen);

    frmProcess::Dir1.Path = AddTrailingSlash(Paths::ProgramDir()) + AddTrailingSlash(ProjectNumber);
    RouteNav();
    SetDone(frmGeneratingReport::chkboxRouteNav);
    ReportFinished = true;
}

Flag WriteTheReport(const Text &theFile, const TextHolder &theRTB, const Text &theMarker, const TableRows &theRows)
{
    Flag Result = True;
    Trap([&] {
        const Text store = InStoreDir("");
        if (ifDirExists(store)) {
            const std::string_view text = theRTB.Text.Get();
            Files::Write(store + theFile + ".html", [&](const auto &theSink) {
                std::size_t from = 0;
                if (theRows)
                    for (std::size_t at; (at = text.find(theMarker, from)) != Text::npos;
                         from = at + theMarker.size()) {
                        theSink(text.substr(from, at - from));
                        theRows(theSink);
                    }
                theSink(text.substr(from));
                theSink(CRLF);
            });
            return;
        }
        LogMessageLines({"", "The project storage directory couldn't be found for project #" + ProjectNumber + ".",
            store, "GenerateReport.frmProcess"});
        Result = False;
    });
    return Result;
}
