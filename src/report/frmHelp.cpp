#include "report/frmHelp.h"
#include "core/Trap.h"
#include "report/BrowserScreen.h"
#include "report/frmReport.h"

namespace frmHelp
{
void Form_Load(), Form_Resize(), Close_Report_Click();

// The design size stands for the whole screen until the user's real one is known.
Form Me{"frmHelp", {.Width = 1024, .Height = 740, .Sizable = true, .Load = Form_Load, .Resize = Form_Resize}};
BrowserControls Controls{Me, {.CloseCaption = "Close Browser", .Close = Close_Report_Click}};
Browser &FinalReportBrowser = Controls.FinalReportBrowser;

void Form_Load()
{
    Trap([] {
        Me.Caption = AppTitle;
        Form_Resize();
        // Deliberate: who opens this screen sends it on to the support site at once; there may be no report yet.
        FinalReportBrowser.Navigate(ReportPage());
    });
}

void Form_Resize()
{
    // Deliberate: the limits are held against the size of frmReport, which comes into being for that, hidden.
    Trap([] { Controls.SizeControls(frmReport::Me); });
}

void Close_Report_Click()
{
    Trap([] { Me.Unload(); });
}
}  // namespace frmHelp
