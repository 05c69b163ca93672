// What the two screens with an embedded browser have in common.
#pragma once
#include "core/Trap.h"
#include "toolkit/Controls.h"

// The address of the current project's report page.
Text ReportPage();

// Sizes the controls of a browser screen to theForm. A side is left alone where that of theMeasured is not above its
// least size.
void SizeControls(
    Form &theForm, Form &theMeasured, Label &lblAddress, TextBox &txtAddress, Browser &theBrowser, Label &lblStatusBar);

// The handlers that both screens share.
template <Browser &theBrowser> void mnu_Back_Click()
{
    Trap([] { theBrowser.GoBack(); });
}
template <Browser &theBrowser> void menu_forward_Click()
{
    Trap([] { theBrowser.GoForward(); });
}
template <Browser &theBrowser> void Menu_Refresh_Click()
{
    Trap([] { theBrowser.Refresh(); });
}
template <Browser &theBrowser> void menu_Stop_Click()
{
    Trap([] { theBrowser.Stop(); });
}
template <Browser &theBrowser> void Toolbar1_ButtonClick(const Text &theKey)
{
    Trap([&] {
        if (theKey == "Back")
            theBrowser.GoBack();
        else if (theKey == "Forward")
            theBrowser.GoForward();
    });
}
template <TextBox &txtAddress> void ShowAddress(const Text &theAddress)
{
    Trap([&] { txtAddress.Text = theAddress; });
}
template <Label &lblStatusBar> void ShowStatus(const Text &theText)
{
    Trap([&] { lblStatusBar.Caption = "  " + theText; });
}
template <Form &theForm> void ShowTitle(const Text &theTitle)
{
    Trap([&] { theForm.Caption = theTitle; });
}
