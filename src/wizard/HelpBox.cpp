#include "wizard/HelpBox.h"
#include "core/FileHandle.h"
#include "core/Trap.h"

static constexpr double normalWidth = 600;
static constexpr double frameWidth = 160;

HelpTopic::HelpTopic(Form &theForm, const char *theName, Spot theSpot, Text theHeading, Text theText)
    : Image(theForm, theName,
          {.At = {theSpot.Left, theSpot.Top, 22, 22},
              .AccessibleName = "Help: " + theHeading,
              .As = Role::Help,
              .Click = [this] { ShowHelpBox(Owner, Heading, TopicText); }}),
      Heading(std::move(theHeading)), TopicText(std::move(theText))
{
}

HelpFrame::HelpFrame(Form &theForm, Text theRestingHeading)
    : bg_help(theForm, "bg_help", {.At = {normalWidth, 0, frameWidth, 435}}),
      textHBHeading(theForm, "textHBHeading",
          {.At = {normalWidth + 12, 58, frameWidth - 24, 36}, .Style = TextStyle::HelpHeading}),
      textHBText(theForm, "textHBText",
          {.At = {normalWidth + 12, 98, frameWidth - 18, 258},
              .AccessibleName = "Help text",
              .Style = TextStyle::HelpText,
              .As = Role::HelpText}),
      btnCloseHelp(theForm, "btnCloseHelp",
          {.At = {normalWidth + 34, 372, 92, 34},
              .AccessibleName = "Close help",
              .As = Role::CloseHelp,
              .Click = [&theForm, heading = std::move(theRestingHeading)] {
                  Trap([&] { CloseHelpBox(theForm, heading); });
              }})
{
}

void ShowHelpBox(Form &theForm, const Text &theHeading, const Text &theText, Flag doSlide, const Text &thePicture, int)
{
    Trap([&] {
        auto &heading = *theForm.Find<Label>("textHBHeading");
        if (!thePicture.empty())
            theForm.Find<Image>("bg_help")->Picture = PictureOf(thePicture);
        if (heading.Caption == theHeading || HelpBoxClosed) {
            HelpBoxClosed = false;
            double direction = 1;
            if (HelpBoxOpen) {
                // Deliberate: also where it was an earlier screen that left its box open; this one then shrinks below
                // its normal width.
                direction = -1;
                HelpBoxClosed = true;
            }
            theForm.Left = theForm.Left - direction * Twips(1252.5);
            const int steps = doSlide == True ? 15 : 1;
            for (int step = 1; step <= steps; ++step)
                theForm.Width = theForm.Width + direction * Twips(2400.0 / steps);
            HelpBoxOpen = !HelpBoxOpen;
        }
        heading.Caption = theHeading;
        theForm.Find<Label>("textHBText")->Caption = theText;
    });
}

void CloseHelpBox(Form &theForm, const Text &theHeading)
{
    HelpBoxClosed = true;
    ShowHelpBox(theForm, theHeading, "");
}

void CloseHelpBoxIfOpen(Form &theForm, const Text &theHeading)
{
    if (HelpBoxOpen)
        CloseHelpBox(theForm, theHeading);
}
