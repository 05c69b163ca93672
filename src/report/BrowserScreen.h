// What the two screens with an embedded browser have in common.
#pragma once
#include "toolkit/Controls.h"
#include <optional>

// The address of the current project's report page.
Text ReportPage();

// What differs in the menus of the two screens.
struct BrowserMenus {
    const char *CloseCaption;
    Handler Close;
    Handler ShowReport = nullptr;  // null leaves out ReturnIndex and V_Report
};

struct BrowserControls {
    BrowserControls(Form &theForm, BrowserMenus theMenus);
    MenuItem Close_Report;
    MenuItem SiteNav;
    std::optional<MenuItem> ReturnIndex;
    MenuItem mnu_Back, menu_forward, Menu_Refresh, menu_Stop;
    std::optional<MenuItem> V_Report;
    ToolBar Toolbar1;
    Label lblAddress;
    TextBox txtAddress;  // Deliberate: only shows the address; typing in it does nothing.
    Browser FinalReportBrowser;
    Label lblStatusBar;

    // Fits the controls to the size of their screen: the widths only where theMeasured is wide enough, the heights only
    // where it is high enough.
    void SizeControls(Form &theMeasured);
};
