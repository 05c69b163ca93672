#include "report/frmReport.h"
#include "core/Trap.h"
#include "report/BrowserScreen.h"
#include "wizard/ScreenLook.h"

namespace frmReport
{
void Form_Load(), Form_Resize(), Form_QueryUnload(bool &Cancel);
void Close_Report_Click(), ReturnIndex_Click();

// The design size stands in for that of the user's display until a presentation sets it.
Form Me{"frmReport", {.Width = 1024,
                         .Height = 740,
                         .Sizable = true,
                         .Load = Form_Load,
                         .Resize = Form_Resize,
                         .QueryUnload = Form_QueryUnload}};
BrowserControls Controls{
    Me, {.CloseCaption = "Close Report", .Close = Close_Report_Click, .ShowReport = ReturnIndex_Click}};
Browser &FinalReportBrowser = Controls.FinalReportBrowser;

void Form_Load()
{
    Trap([] {
        Me.Caption = AppTitle;
        Form_Resize();
        FinalReportBrowser.Navigate(ReportPage());
    });
}

void Form_Resize()
{
    Trap([] { Controls.SizeControls(Me); });
}

void Form_QueryUnload(bool &Cancel)
{
    Trap([&] {
        ConfirmExit();
        Cancel = true;
    });
}

void Close_Report_Click()
{
    Trap([] { ConfirmExit(); });
}

void ReturnIndex_Click()
{
    Trap([] { FinalReportBrowser.Navigate(ReportPage()); });
}
}  // namespace frmReport
