// The menu bar of the wizard's screens.
#pragma once
#include "toolkit/Controls.h"

// The items that have a handler on a screen; the others do nothing when chosen.
struct LiveItems {
    bool Exit = false;
    bool Options = false;  // the three items of that menu
    bool EditFilters = false;
    bool About = false;
    bool ReportingErrors = false;
};
// For the screens before a project exists: there is no filter list yet.
inline constexpr LiveItems menuBeforeProject{.Exit = true, .Options = true, .About = true, .ReportingErrors = true};
// All items, for the screens on which a project exists.
inline constexpr LiveItems fullMenu{
    .Exit = true, .Options = true, .EditFilters = true, .About = true, .ReportingErrors = true};

struct MenuBar {
    MenuBar(Form &theForm, LiveItems live);
    MenuItem mnuFile, optFile_Exit;
    MenuItem mnuOptions, optSubdirs, optUseFilters, optShowWelcome;
    MenuItem mnuTools, optFileFilters;
    MenuItem mnuHelp, optHelp_ReportingErrors, sep1, optHelp_About;
    // Deliberate: a second menu with the same items, which no code raises.
    MenuItem mnuPopup, optPopupSubdirs, optPopupUseFilters, optBlank, optPopupExit;
};
