#include "wizard/ScreenLook.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"

static void SetPicture(Form &theForm, const Text &theControl, const Text &theFile)
{
    if (auto *image = theForm.Find<Image>(theControl))
        image->Picture = PictureOf(theFile);
}

static bool CountsAsTrue(const Text &theFlag)
{
    return EqualsIgnoringCase(theFlag, "True") || NumberAtStart(theFlag) != 0;
}

void ApplyScreenLook(Form &theForm, const Text &theBackground, int withNext, int withBack)
{
    Trap([&] {
        theForm.Height = FormHeight;
        theForm.Width = FormWidth;
        theForm.Caption = AppTitle;
        // Deliberate: HelpBoxOpen keeps its value, though some screens are left with the box open.
        HelpBoxClosed = true;
        SetPicture(theForm, "btnCloseHelp", "btnClose.jpg");
        if (withNext == 1)
            SetPicture(theForm, "btnNext", "btnNext.jpg");
        if (withBack == 1)
            SetPicture(theForm, "btnBack", "btnBack.jpg");
        if (auto *background = theForm.Find<Image>("bg_help")) {
            background->Left = 600;
            background->Top = 0;
        }
        theForm.Picture = PictureOf(theBackground.empty() ? "bg_main01.jpg" : theBackground);
        if (auto *option = theForm.Find<MenuItem>("optShowWelcome"); option && CountsAsTrue(ShowWelcome))
            option->Checked = true;
    });
}

void ConfirmExit()
{
    Trap([] {
        int answer = answerYes;
        if (ExitConfirmNeeded)
            // Deliberate: the third of two buttons is the default; presentations make it No.
            answer = MsgBox("Are you sure you want to exit?", msgYesNo + msgStop + msgThirdDefault, "Exit");
        if (answer == answerYes)
            End();
    });
}
