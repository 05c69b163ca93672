#include "report/frmHelp.h"
#include "core/Trap.h"
#include "report/BrowserScreen.h"
#include "report/frmReport.h"

namespace frmHelp
{
void Form_Load(), Form_Resize(), Close_Report_Click();

// The design size stands in for that of the user's display until a presentation sets it.
Form Me{"frmHelp", {.Width = 1024, .Height = 740, .Sizable = true, .Load = Form_Load, .Resize = Form_Resize}};
BrowserControls Controls{Me, {.CloseCaption = "Close Browser", .Close = Close_Report_Click}};
Browser &FinalReportBrowser = Controls.FinalReportBrowser;

void Form_Load()
{
    Trap([] {
        Me.Caption = AppTitle;
        Form_Resize();
        // Deliberate: there may be no report yet; the caller navigates on to the support site at once.
        FinalReportBrowser.Navigate(ReportPage());
    });
}

void Form_Resize()
{
    // Deliberate: compares the size of frmReport with the limits, which loads that screen, hidden.
    Trap([] { Controls.SizeControls(frmReport::Me); });
}

void Close_Report_Click()
{
    Trap([] { Me.Unload(); });
}
}  // namespace frmHelp
