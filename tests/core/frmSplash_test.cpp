#include "TestSite.h"
#include "core/frmLists.h"
#include "core/frmSplash.h"

using Rows = std::vector<Text>;

struct Splash : TestSite {
    // Starts the program, lets three seconds pass and returns the name of the screen that is showing then.
    Text Start(const Text &theShowWelcome)
    {
        PutAt(program / "variables.sav", "|||ShowWelcome|||" + theShowWelcome + CRLF);
        frmSplash::Me.Show();
        EXPECT_TRUE(TimerTick(The<Timer>(frmSplash::Me, "Timer1")));
        Text Result;
        for (Form *form : Form::All())
            if (form->Visible) {
                Result += form->Name;
                form->Unload();
            }
        return Result;
    }
};

TEST_F(Splash, FillsTheGlobalsAndLists)
{
    ProjectNumber = "of before";
    HelpBoxOpen = UsingQuillmark = ReportFinished = DevMode = true;
    HelpBoxClosed = ExitConfirmNeeded = false;
    PutAt(program / "MediaExtensions.lst", "jpg\r\n---\r\ngif");
    EXPECT_EQ(The<Label>(frmSplash::Me, "Label1").Caption, "Version 1.0.7B")
        << "the first use of a control loads the screen";
    EXPECT_EQ(AppTitle + ProjectNumber, "Ferncastleof before");
    EXPECT_NONE(HelpBoxOpen, UsingQuillmark, ReportFinished, DevMode);
    EXPECT_ALL(HelpBoxClosed, ExitConfirmNeeded, FormWidth == 600, FormHeight == 435);
    EXPECT_EQ(frmLists::ListLinkTrash.ListCount(), 0) << "a missing file gives an empty list";
    EXPECT_EQ(frmLists::lstMediaExtensions.Rows(), (Rows{"jpg", "---"}))
        << "a last row without a line end does not count";
    EXPECT_EQ(frmLists::lstMediaLinksCnt.Rows(), (Rows{"0", "0"}));
    EXPECT_EQ(frmLists::lstMediaFilesCnt.Rows(), (Rows{"0", "0"}));
}

TEST_F(Splash, ShowWelcomeIsReadAsAFlag)
{
    const std::vector<std::pair<Text, Rows>> readings = {{"frmWelcome", {"-1", "True", "tRUE", " -1 ", "-1.0"}},
        {"frmMenu", {"0", "1", "2", "-2", "False", "FALSE", "+1", "-1.5", " 1 "}},
        {"frmSplash", {"", " ", "yes", "-", "--1", "1x", "1.2.3", "true!", "-1|||More|||0"}}};
    for (const auto &[screen, values] : readings)
        for (const Text &value : values)
            EXPECT_EQ(Start(value), screen) << "\"" << value << "\"";
    std::filesystem::remove(program / "imgs" / "bg_splash.jpg");
    EXPECT_EQ(Start("1"), "frmMenu") << "even without its picture";
    EXPECT_ALL(front.Boxes.empty(), front.Failures.empty());
}
