#include "wizard/MenuBar.h"
#include "core/FileHandle.h"
#include "core/Trap.h"
#include "wizard/ScreenLook.h"
#include "wizard/frmAbout.h"
#include "wizard/frmErrorReporting.h"
#include "wizard/frmFilters.h"

// An item that shows a screen over the current one.
static void ShowOver(Form &theForm)
{
    Trap([&] { theForm.Show(); });
}

// Flips an option and its twin in the popup menu, on their own screen alone: no other screen hears of it.
static void Flip(MenuItem &theOption, MenuItem &theTwin)
{
    Trap([&] {
        theOption.Checked = !theOption.Checked;
        theTwin.Checked = !theTwin.Checked;
    });
}

// Saves the opposite of the tick for the next start, then flips the tick.
static void FlipShowWelcome(MenuItem &theOption)
{
    Trap([&] {
        SaveVariable("ShowWelcome", theOption.Checked ? "0" : "1", 0);
        ShowWelcome = theOption.Checked ? "False" : "True";
        theOption.Checked = !theOption.Checked;
    });
}

static Handler HandlerIf(bool live, Handler theHandler)
{
    return live ? std::move(theHandler) : nullptr;
}

MenuBar::MenuBar(Form &theForm, LiveItems live)
    : mnuFile(theForm, "mnuFile", {.Caption = "&File"}),
      optFile_Exit(theForm, "optFile_Exit", mnuFile,
          {.Caption = "E&xit", .Click = HandlerIf(live.Exit, [] { Trap([] { ConfirmExit(); }); })}),
      mnuOptions(theForm, "mnuOptions", {.Caption = "&Options"}),
      optSubdirs(theForm, "optSubdirs", mnuOptions,
          {.Caption = "Include &Subdirectories",
              .Ticked = true,
              .Click = HandlerIf(live.Options, [this] { Flip(optSubdirs, optPopupSubdirs); })}),
      optUseFilters(theForm, "optUseFilters", mnuOptions,
          {.Caption = "Use &File Extension Filters",
              .Ticked = true,
              .Click = HandlerIf(live.Options, [this] { Flip(optUseFilters, optPopupUseFilters); })}),
      optShowWelcome(theForm, "optShowWelcome", mnuOptions,
          {.Caption = "Show &Welcome Screen at Start",
              .Click = HandlerIf(live.Options, [this] { FlipShowWelcome(optShowWelcome); })}),
      mnuTools(theForm, "mnuTools", {.Caption = "&Tools"}),
      optFileFilters(theForm, "optFileFilters", mnuTools,
          {.Caption = "Edit &File Extension Filters",
              .Click = HandlerIf(live.EditFilters, [] { ShowOver(frmFilters::Me); })}),
      mnuHelp(theForm, "mnuHelp", {.Caption = "&Help"}),
      optHelp_ReportingErrors(theForm, "optHelp_ReportingErrors", mnuHelp,
          {.Caption = "&Reporting Errors",
              .Click = HandlerIf(live.ReportingErrors, [] { ShowOver(frmErrorReporting::Me); })}),
      sep1(theForm, "sep1", mnuHelp, {.Caption = "-"}),
      optHelp_About(theForm, "optHelp_About", mnuHelp,
          {.Caption = "&About", .Click = HandlerIf(live.About, [] { ShowOver(frmAbout::Me); })}),
      mnuPopup(theForm, "mnuPopup", {.Caption = "&Popup", .Visible = false}),
      optPopupSubdirs(theForm, "optPopupSubdirs", mnuPopup, optSubdirs.Design),
      optPopupUseFilters(theForm, "optPopupUseFilters", mnuPopup, optUseFilters.Design),
      optBlank(theForm, "optBlank", mnuPopup, sep1.Design),
      optPopupExit(theForm, "optPopupExit", mnuPopup, optFile_Exit.Design)
{
}
