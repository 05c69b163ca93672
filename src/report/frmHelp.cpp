#include "report/frmHelp.h"
#include "report/BrowserScreen.h"
#include "report/frmReport.h"

namespace frmHelp
{
void Form_Load(), Form_Resize(), Close_Report_Click();
extern  // Shows the address; typing in it does nothing. Wanted.
    TextBox txtAddress;
extern Label lblStatusBar;

// The design size stands for the whole screen until the user's real one is known.
Form Me{"frmHelp", {.Width = 1024, .Height = 740, .Sizable = true, .Load = Form_Load, .Resize = Form_Resize}};
MenuItem Close_Report{Me, "Close_Report", {.Caption = "Close Browser", .Click = Close_Report_Click}};
MenuItem SiteNav{Me, "SiteNav", {.Caption = "Navigation"}};
MenuItem mnu_Back{Me, "mnu_Back", SiteNav, {.Caption = "Back", .Click = mnu_Back_Click<FinalReportBrowser>}};
MenuItem menu_forward{
    Me, "menu_forward", SiteNav, {.Caption = "Forward", .Click = menu_forward_Click<FinalReportBrowser>}};
MenuItem Menu_Refresh{
    Me, "Menu_Refresh", SiteNav, {.Caption = "Refresh", .Click = Menu_Refresh_Click<FinalReportBrowser>}};
MenuItem menu_Stop{Me, "menu_Stop", SiteNav, {.Caption = "Stop", .Click = menu_Stop_Click<FinalReportBrowser>}};

ToolBar Toolbar1{Me, "Toolbar1", {.At = {0, 0, 240, 48}},
    {{"Back", "Back", "Go back one page"}, {"Forward", "Forward", "Go forward one page"}},
    Toolbar1_ButtonClick<FinalReportBrowser>};
Label lblAddress{Me, "lblAddress", {.At = {12, 60, 64, 20}, .Caption = "Address"}};
TextBox txtAddress{Me, "txtAddress", {.At = {76, 55, 0, 30}, .AccessibleName = "Address"}};
Browser FinalReportBrowser{Me, "FinalReportBrowser", {.At = {12, 93, 0, 0}},
    {ShowAddress<txtAddress>, ShowStatus<lblStatusBar>, ShowTitle<Me>}};
Label lblStatusBar{Me, "lblStatusBar", {.At = {0, 0, 0, 24}, .Style = TextStyle::Status}};

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
    Trap([] { SizeControls(Me, frmReport::Me, lblAddress, txtAddress, FinalReportBrowser, lblStatusBar); });
}

void Close_Report_Click()
{
    Trap([] { Me.Unload(); });
}
}  // namespace frmHelp
