// The menu bar of the wizard's screens.
#pragma once
#include "toolkit/Controls.h"

// What the items do on a screen; an item without a handler does nothing when chosen.
struct MenuHandlers {
    Handler Exit = nullptr;
    Handler EditFilters = nullptr;
    Handler Subdirs = nullptr;
    Handler UseFilters = nullptr;
    Handler ShowWelcome = nullptr;
    Handler About = nullptr;
    Handler ReportingErrors = nullptr;
};

struct MenuBar {
    MenuBar(Form &theForm, MenuHandlers theHandlers);
    MenuItem mnuFile, optFile_Exit;
    MenuItem mnuOptions, optSubdirs, optUseFilters, optShowWelcome;
    MenuItem mnuTools, optFileFilters;
    MenuItem mnuHelp, optHelp_ReportingErrors, sep1, optHelp_About;
    // A second menu with the same options; no code raises it.
    MenuItem mnuPopup, optPopupSubdirs, optPopupUseFilters, optBlank, optPopupExit;
};

// The handlers that all screens share.
void optFile_Exit_Click();
void optFileFilters_Click();
void optHelp_About_Click();
void optHelp_ReportingErrors_Click();
// Flips an option and its twin in the popup menu, on their own screen alone: no other screen hears of it.
void FlipOption(MenuItem &theOption, MenuItem &theTwin);
// Saves the opposite of what is ticked for the next start, then flips the tick.
void FlipShowWelcome(MenuItem &theOption);

template <MenuBar &theMenu> void optSubdirs_Click()
{
    FlipOption(theMenu.optSubdirs, theMenu.optPopupSubdirs);
}
template <MenuBar &theMenu> void optUseFilters_Click()
{
    FlipOption(theMenu.optUseFilters, theMenu.optPopupUseFilters);
}
template <MenuBar &theMenu> void optShowWelcome_Click()
{
    FlipShowWelcome(theMenu.optShowWelcome);
}

// All items, for the screens on which a project exists.
template <MenuBar &theMenu> inline MenuHandlers FullMenu()
{
    return {.Exit = optFile_Exit_Click,
        .EditFilters = optFileFilters_Click,
        .Subdirs = optSubdirs_Click<theMenu>,
        .UseFilters = optUseFilters_Click<theMenu>,
        .ShowWelcome = optShowWelcome_Click<theMenu>,
        .About = optHelp_About_Click,
        .ReportingErrors = optHelp_ReportingErrors_Click};
}
// The same for the screens that come before a project: there is no filter list yet.
template <MenuBar &theMenu> inline MenuHandlers MenuBeforeProject()
{
    MenuHandlers Result = FullMenu<theMenu>();
    Result.EditFilters = nullptr;
    return Result;
}
