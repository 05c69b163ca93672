#include "report/BrowserScreen.h"
#include "core/FileHandle.h"

Text ReportPage()
{
    return InStoreDir("report.html");
}

void SizeControls(
    Form &theForm, Form &theMeasured, Label &lblAddress, TextBox &txtAddress, Browser &theBrowser, Label &lblStatusBar)
{
    Trap([&] {
        const double sideMargins = Twips(370);
        const double aboveBrowser = 117;  // in pixels: menu bar, tool bar and address
        if (theMeasured.Width > Twips(370)) {
            txtAddress.Width = theForm.Width - lblAddress.Width - sideMargins;
            theBrowser.Width = theForm.Width - sideMargins;
            lblStatusBar.Width = theForm.Width;
        }
        if (theMeasured.Height > Twips(1500)) {
            theBrowser.Height = theForm.Height - lblStatusBar.Height - aboveBrowser;
            lblStatusBar.Top = theBrowser.Top + theBrowser.Height;
        }
    });
}
