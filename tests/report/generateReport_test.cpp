// The report as a whole, on templates and records made here; and the screens that show it.
#include "TestSite.h"
#include "core/FileHandle.h"
#include "core/frmLists.h"
#include "engine/frmProcess.h"
#include "report/GenerateReport.h"
#include "report/Records.h"
#include "report/frmGeneratingReport.h"
#include "report/frmHelp.h"
#include "report/frmReport.h"

namespace
{
struct ReportTest : TestSite {
    ReportTest()
    {
        std::filesystem::create_directory(program / "0007");
        std::filesystem::create_directory(program / "0007_store");
        ProjectNumber = "0007";
        ProjectName = "Moss <!--lblDomainName-->";
        DomainName = "site.test";
        LocalSiteDir = "c:\\sites\\moss\\";
        frmLists::ListIndexes.SetRows({"index.htm"});
        frmProcess::Menu.optUseFilters.Checked = false;
    }
    void Put(const Text &theFile, const Text &theText) const { PutAt(program / theFile, theText); }
    static Text Page(const Text &theFile) { return Files::Read(InStoreDir(theFile)); }
};

const Text fiveBlanks = "&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;";
}  // namespace

TEST_F(ReportTest, FillsThePagesAndRoutesTheSite)
{
    Put("report_template.html", "<*thebackground*>|<*report_title*>|<*reportdetails_title*>|<*expdetails_title*>|"
                                "<!--lblProjectName-->|<!--lblDomainName-->|<!--lblLocalSite-->|<!--lblNewSite-->|"
                                "<!--lblFilesProcessedCnt-->|<!--lblPagesAddedCnt-->|<!--lblKeywordsAddedCntHalf-->|"
                                "<!--lblKeywordsAddedCnt-->|<!--lblMediaFilesCnt-->|<!--lblLinksInternalCnt-->|"
                                "<!--lblLinksExternalCnt-->|<!--lblLinksBrokenCnt-->|<!--lblLinksMediaCnt-->|"
                                "<!--LinksBrokenDetails-->|<!--LinksExternalDetails-->|<!--MediaDetails-->");
    Put("report_linksexternal_template.html", "E<!--|||***ExternalLinks***|||-->e<!--|||***externallinks***|||-->");
    Put("report_media_template.html", "M<!--|||***MediaContent***|||-->m<!--|||***MediaContent***|||-->");
    Put("0007_store/report.html", "an older report, longer than anything that is written now");
    Put("0007_store/report_linksbroken.html", "an older page");
    Put("0007_store/ExternalLinksFiles.sav", "x:\\p.htm[]\r\n");
    Put("0007_store/ExternalLinksLinks.sav", "<a>[]\r\n");
    Put("0007/index.htm", "<A HREF=\"/Home.htm\">");
    frmLists::lstMediaExtensions.SetRows({"gif", "---"});
    frmLists::lstMediaFilesCnt.SetRows({"4", "0"});
    frmLists::lstMediaLinksCnt.SetRows({"9", "0"});
    Text count = "10";
    for (Label *label : {&frmProcess::lblFilesCnt, &frmProcess::lblPagesAdded, &frmProcess::lblMediaFilesFound,
             &frmProcess::lblLinksInternalCnt, &frmProcess::lblLinksExternalCnt, &frmProcess::lblLinksMedia}) {
        label->Caption = count;
        ++count[1];
    }
    frmProcess::lblKeywordsAdded.Caption = "7";
    GenerateReport();

    const Text project = InProgramDir("0007\\");
    EXPECT_EQ(
        Page("report.html"), "../imgs/bg_report01.jpg|../imgs/report_title01.png|../imgs/title_project_details.png|"
                             "../imgs/title_exp_summary.png|Moss site.test|site.test|c:\\sites\\moss\\|<A HREF=\"" +
                                 project + "index.htm\">" + project + "</A>|10|11|3.5|7|12|13|14|0|15||" + fiveBlanks +
                                 " <a href=\"report_linksexternal.html\">details</A>|" + fiveBlanks +
                                 " <a href=\"report_media.html\">details</A>\r\n");
    EXPECT_EQ(Page("report_linksexternal.html"), "E" + TableRow({"x:\\p.htm"}) +
                                                     TableRow({fiveBlanks + "&lt;a&gt;\r\n"}) +
                                                     "e<!--|||***externallinks***|||-->\r\n");
    const Text media = TableRow({"gif", "4", "9"}) +
                       "  <TR>\r\n    <TD COLSPAN=3>\r\n      <HR WIDTH=100%>\r\n    </TD>\r\n  </TR>\r\n";
    EXPECT_EQ(Page("report_media.html"), "M" + media + "m" + media + "\r\n");
    EXPECT_EQ(Page("report_linksbroken.html"), "an older page");
    EXPECT_EQ(Files::Read(project + "index.htm"), "<a href=\"home.htm\">\r\n");
    using namespace frmGeneratingReport;
    for (const Image *tick : {&chkboxLinksExt, &chkboxLinksBrk, &chkboxMediaReport, &chkboxStatGen, &chkboxRouteNav})
        EXPECT_EQ(tick->Now.Picture, InProgramDir("imgs\\chkboxDone.jpg")) << tick->Name;
    EXPECT_ALL(ReportFinished, frmProcess::Timer2.Enabled, Me.Visible);
}

TEST_F(ReportTest, GoesOnWithTemplatesRecordsAndIndexFileMissing)
{
    Put("report_template.html", "<!--LinksBrokenDetails-->|<!--LinksExternalDetails-->|<!--MediaDetails-->|"
                                "<!--lblNewSite-->|<!--lblKeywordsAddedCntHalf-->");
    Put("report_linksbroken_template.html", "B<!--|||***BrokenLinks***|||-->b");
    Put("0007_store/BrokenLinksFiles.sav", "p[]\r\n");
    frmLists::rtbReportTemp2 = std::make_shared<const Text>("<old>[]\r\n");  // left over from the external links
    frmProcess::lblLinksExternalCnt.Caption = "2";
    frmProcess::lblLinksBrokenCnt.Caption = "1";
    frmProcess::lblKeywordsAdded.Caption = "8";
    GenerateReport();
    // The link to the external page leads nowhere; there is none to the media page.
    EXPECT_EQ(Page("report.html"), fiveBlanks + " <a href=\"report_linksbroken.html\">details</A>|" + fiveBlanks +
                                       " <a href=\"report_linksexternal.html\">details</A>||" + InProgramDir("0007\\") +
                                       "|4\r\n");
    EXPECT_EQ(
        Page("report_linksbroken.html"), "B" + TableRow({"p"}) + TableRow({fiveBlanks + "&lt;old&gt;\r\n"}) + "b\r\n");
    EXPECT_FALSE(ifFileExists(InStoreDir("report_linksexternal.html")));
    std::filesystem::remove_all(program / "0007_store");
    EXPECT_EQ(WriteTheReport("report", frmLists::rtbReport), False);
}

TEST_F(ReportTest, AFailureStopsAtTheTrapOfItsCaller)
{
    Put("report_template.html", "");
    std::filesystem::remove(program / "imgs/chkboxDone.jpg");
    EXPECT_THROW(GenerateReport(), RuntimeFailure);
    frmProcess::btnReport_Click();
    EXPECT_NONE(ReportFinished, frmReport::Me.Loaded);
    EXPECT_ALL(frmGeneratingReport::Me.Visible, frmProcess::Me.Loaded);
    EXPECT_FALSE(UserClose(frmGeneratingReport::Me));
    EXPECT_FALSE(ifFileExists(InStoreDir("report.html")));
}

TEST_F(ReportTest, TheMeterRunsUntilTheReportIsFinished)
{
    using namespace frmGeneratingReport;
    Shape1.Left = Frame1.Width - Twips(25);
    ShowMeter(Frame1, Shape1);
    EXPECT_NEAR(Shape1.Left, Twips(-369), 1e-9);
    Shape1.Left = Frame1.Width - Twips(26);
    ShowMeter(Frame1, Shape1);
    EXPECT_NEAR(Shape1.Left, Twips(6375 - 26 + 153.75), 1e-9);

    Timer &timer = *Me.Find<Timer>("Timer1");
    Shape1.Left = 0;
    ReportFinished = true;
    EXPECT_TRUE(TimerTick(timer));
    EXPECT_FALSE(TimerTick(timer));
    EXPECT_NEAR(Shape1.Left, Twips(153.75), 1e-9);
}

TEST_F(ReportTest, TheBrowserScreensSizeTheirControls)
{
    frmReport::Me.Show();
    UserResize(frmReport::Me, Twips(370), Twips(1500));  // neither is above its limit
    EXPECT_DOUBLE_EQ(frmReport::FinalReportBrowser.Now.At.Height, 740 - 117 - 24);
    // frmHelp compares the size of frmReport, not its own, with the limits: that one is small, so nothing is sized.
    frmHelp::Me.Show();
    EXPECT_DOUBLE_EQ(frmHelp::FinalReportBrowser.Now.At.Height, 0);
    frmHelp::Me.Unload();
    frmReport::Me.Unload();
    frmHelp::Me.Show();
    EXPECT_ALL(frmReport::Me.Loaded, !frmReport::Me.Visible);
    EXPECT_DOUBLE_EQ(frmHelp::FinalReportBrowser.Now.At.Height, 740 - 117 - 24);
}
