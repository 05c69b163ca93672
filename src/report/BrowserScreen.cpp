#include "report/BrowserScreen.h"
#include "core/FileHandle.h"
#include "core/Trap.h"

Text ReportPage()
{
    return InStoreDir("report.html");
}

BrowserControls::BrowserControls(Form &theForm, BrowserMenus theMenus)
    : Close_Report(theForm, "Close_Report", {.Caption = theMenus.CloseCaption, .Click = theMenus.Close}),
      SiteNav(theForm, "SiteNav", {.Caption = "Navigation"}),
      ReturnIndex(theMenus.ShowReport ? std::optional<MenuItem>(std::in_place, theForm, "ReturnIndex", SiteNav,
                                            Face{.Caption = "Return To Report", .Click = theMenus.ShowReport})
                                      : std::nullopt),
      mnu_Back(theForm, "mnu_Back", SiteNav,
          {.Caption = "Back", .Click = [this] { Trap([&] { FinalReportBrowser.GoBack(); }); }}),
      menu_forward(theForm, "menu_forward", SiteNav,
          {.Caption = "Forward", .Click = [this] { Trap([&] { FinalReportBrowser.GoForward(); }); }}),
      Menu_Refresh(theForm, "Menu_Refresh", SiteNav,
          {.Caption = "Refresh", .Click = [this] { Trap([&] { FinalReportBrowser.Refresh(); }); }}),
      menu_Stop(theForm, "menu_Stop", SiteNav,
          {.Caption = "Stop", .Click = [this] { Trap([&] { FinalReportBrowser.Stop(); }); }}),
      V_Report(theMenus.ShowReport ? std::optional<MenuItem>(std::in_place, theForm, "V_Report",
                                         Face{.Caption = "View Report", .Click = theMenus.ShowReport})
                                   : std::nullopt),
      Toolbar1(theForm, "Toolbar1", {.At = {0, 0, 240, 48}},
          {{"Back", "Back", "Go back one page"}, {"Forward", "Forward", "Go forward one page"}},
          [this](const Text &theKey) {
              Trap([&] {
                  if (theKey == "Back")
                      FinalReportBrowser.GoBack();
                  else if (theKey == "Forward")
                      FinalReportBrowser.GoForward();
              });
          }),
      lblAddress(theForm, "lblAddress", {.At = {12, 60, 64, 20}, .Caption = "Address"}),
      txtAddress(theForm, "txtAddress", {.At = {76, 55, 0, 30}, .AccessibleName = "Address"}),
      FinalReportBrowser(theForm, "FinalReportBrowser", {.At = {12, 93, 0, 0}},
          {[this](const Text &theAddress) { Trap([&] { txtAddress.Text = theAddress; }); },
              [this](const Text &theText) { Trap([&] { lblStatusBar.Caption = "  " + theText; }); },
              [this](const Text &theTitle) { Trap([&] { FinalReportBrowser.Owner.Caption = theTitle; }); }}),
      lblStatusBar(theForm, "lblStatusBar", {.At = {0, 0, 0, 24}, .Style = TextStyle::Status})
{
}

void BrowserControls::SizeControls(Form &theMeasured)
{
    Trap([&] {
        Form &theForm = FinalReportBrowser.Owner;
        const double sideMargins = Twips(370);
        const double aboveBrowser = 117;  // in pixels: menu bar, tool bar and address
        if (theMeasured.Width > Twips(370)) {
            txtAddress.Width = theForm.Width - lblAddress.Width - sideMargins;
            FinalReportBrowser.Width = theForm.Width - sideMargins;
            lblStatusBar.Width = theForm.Width;
        }
        if (theMeasured.Height > Twips(1500)) {
            FinalReportBrowser.Height = theForm.Height - lblStatusBar.Height - aboveBrowser;
            lblStatusBar.Top = FinalReportBrowser.Top + FinalReportBrowser.Height;
        }
    });
}
