#include "core/frmSplash.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Version.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "wizard/frmMenu.h"
#include "wizard/frmWelcome.h"
#include <algorithm>

namespace frmSplash
{
void Form_Load(), Timer1_Timer();

Form Me{"frmSplash", {.Width = 302, .Height = 447, .Load = Form_Load}};
Label Label1{Me, "Label1", {.At = {20, 408, 262, 20}, .Style = TextStyle::Splash}};
Timer Timer1{Me, "Timer1", {.Interval = 3000, .Enabled = false, .Tick = Timer1_Timer}};

void Form_Load()
{
    Trap([] {
        DevMode = false;
        Init_Vars();
        const Text version = ProgramVersion;
        if (DevMode)
            AppTitle += " [DEVMODE]";
        DefaultBoxTitle = AppTitle;
        Me.Width = 302;
        Me.Height = 447;
        Me.Caption = AppTitle;
        Me.Picture = PictureOf("bg_splash.jpg");
        Label1.Caption = "Version " + version;
    });
    // Behind the trap, so that the program starts even without the picture.
    Timer1.Enabled = true;
}

static void FillWithZeros(ListBox &theList)
{
    for (int i = 0; i < frmLists::lstMediaExtensions.ListCount(); ++i)
        theList.SetList(i, "0");
}

void Init_Vars()
{
    Trap([] {
        Files::ProtectSite(&LocalSiteDir);
        ShowWelcome = LoadVariable("ShowWelcome", 0);
        AppTitle = "Ferncastle";
        FormWidth = 600;
        FormHeight = 435;
        HelpBoxOpen = false;
        HelpBoxClosed = true;
        ExitConfirmNeeded = true;
        UsingQuillmark = false;
        InitSpareValue = 1;
        ReportFinished = false;
        LoadListFromFile("lst", "domains", frmLists::ListDomainExtensions);
        LoadListFromFile("lst", "LinkTrash", frmLists::ListLinkTrash);
        LoadListFromFile("lst", "Indexes", frmLists::ListIndexes);
        LoadListFromFile("lst", "MediaExtensions", frmLists::lstMediaExtensions);
        FillWithZeros(frmLists::lstMediaLinksCnt);
        FillWithZeros(frmLists::lstMediaFilesCnt);
    });
}

// True for a saved flag of -1 or "True"; fails when the text is neither a number nor "True" or "False".
// Deliberate: the "1" that the program itself saves does not equal true.
static bool EqualsTrue(const Text &theFlag)
{
    Text flag = theFlag;
    flag.erase(0, flag.find_first_not_of(' '));
    flag.erase(flag.find_last_not_of(' ') + 1);
    if (EqualsIgnoringCase(flag, "True"))
        return true;
    if (EqualsIgnoringCase(flag, "False"))
        return false;
    const std::size_t digits = flag.find_first_not_of("+-") == Text::npos ? 0 : flag.find_first_not_of("+-");
    if (digits > 1 || flag.empty() || flag.find_first_not_of("0123456789.", digits) != Text::npos ||
        flag.find_first_of("0123456789") == Text::npos || std::count(flag.begin(), flag.end(), '.') > 1)
        Fail("not a flag", theFlag);
    return NumberAtStart(flag) == -1;
}

void Timer1_Timer()
{
    Trap([] {
        if (EqualsTrue(ShowWelcome))
            frmWelcome::Me.Show();
        else
            frmMenu::Me.Show();
        Me.Unload();
    });
}
}  // namespace frmSplash
