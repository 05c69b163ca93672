#include "wizard/MenuBar.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmAbout.h"
#include "wizard/frmErrorReporting.h"
#include "wizard/frmFilters.h"

MenuBar::MenuBar(Form &theForm, MenuHandlers theHandlers)
    : mnuFile(theForm, "mnuFile", {.Caption = "&File"}),
      optFile_Exit(theForm, "optFile_Exit", mnuFile, {.Caption = "E&xit", .Click = theHandlers.Exit}),
      mnuOptions(theForm, "mnuOptions", {.Caption = "&Options"}),
      optSubdirs(theForm, "optSubdirs", mnuOptions,
          {.Caption = "Include &Subdirectories", .Ticked = true, .Click = theHandlers.Subdirs}),
      optUseFilters(theForm, "optUseFilters", mnuOptions,
          {.Caption = "Use &File Extension Filters", .Ticked = true, .Click = theHandlers.UseFilters}),
      optShowWelcome(theForm, "optShowWelcome", mnuOptions,
          {.Caption = "Show &Welcome Screen at Start", .Click = theHandlers.ShowWelcome}),
      mnuTools(theForm, "mnuTools", {.Caption = "&Tools"}),
      optFileFilters(theForm, "optFileFilters", mnuTools,
          {.Caption = "Edit &File Extension Filters", .Click = theHandlers.EditFilters}),
      mnuHelp(theForm, "mnuHelp", {.Caption = "&Help"}),
      optHelp_ReportingErrors(theForm, "optHelp_ReportingErrors", mnuHelp,
          {.Caption = "&Reporting Errors", .Click = theHandlers.ReportingErrors}),
      sep1(theForm, "sep1", mnuHelp, {.Caption = "-"}),
      optHelp_About(theForm, "optHelp_About", mnuHelp, {.Caption = "&About", .Click = theHandlers.About}),
      mnuPopup(theForm, "mnuPopup", {.Caption = "&Popup", .Visible = false}),
      optPopupSubdirs(theForm, "optPopupSubdirs", mnuPopup,
          {.Caption = "Include &Subdirectories", .Ticked = true, .Click = theHandlers.Subdirs}),
      optPopupUseFilters(theForm, "optPopupUseFilters", mnuPopup,
          {.Caption = "Use &File Extension Filters", .Ticked = true, .Click = theHandlers.UseFilters}),
      optBlank(theForm, "optBlank", mnuPopup, {.Caption = "-"}),
      optPopupExit(theForm, "optPopupExit", mnuPopup, {.Caption = "E&xit", .Click = theHandlers.Exit})
{
}

void optFile_Exit_Click()
{
    Trap([] { ConfirmExit(); });
}

void optFileFilters_Click()
{
    Trap([] { frmFilters::Me.Show(); });
}

void optHelp_About_Click()
{
    Trap([] { frmAbout::Me.Show(); });
}

void optHelp_ReportingErrors_Click()
{
    Trap([] { frmErrorReporting::Me.Show(); });
}

void FlipOption(MenuItem &theOption, MenuItem &theTwin)
{
    Trap([&] {
        theOption.Checked = !theOption.Checked;
        theTwin.Checked = !theTwin.Checked;
    });
}

void FlipShowWelcome(MenuItem &theOption)
{
    Trap([&] {
        SaveVariable("ShowWelcome", theOption.Checked ? "0" : "1", 0);
        ShowWelcome = theOption.Checked ? "False" : "True";
        theOption.Checked = !theOption.Checked;
    });
}
