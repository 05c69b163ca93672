// The help box that slides out of a screen's right edge.
#pragma once
#include "toolkit/Controls.h"

// A help spot and the topic that a click on it shows. The screen's load assigns its picture.
struct HelpTopic : Image {
    struct Spot {
        double Left = 0, Top = 0;
    };
    HelpTopic(Form &theForm, const char *theName, Spot theSpot, Text theHeading, Text theText);
    const Text Heading, TopicText;
};

// The help frame of a screen, just right of its normal width: widening the screen brings it into view.
// theRestingHeading is its heading while it is closed.
struct HelpFrame {
    explicit HelpFrame(Form &theForm, Text theRestingHeading = "");
    Image bg_help;
    Label textHBHeading, textHBText;
    Image btnCloseHelp;
};

// Shows a topic in the help box of theForm, opening the box if need be. A second call with the heading that is showing
// closes it. doSlide -1 slides in 15 steps, any other value in one. thePicture is a file of imgs; theSixth is not read.
void ShowHelpBox(Form &theForm, const Text &theHeading, const Text &theText, Flag doSlide = True,
    const Text &thePicture = "bg_help01.jpg", int theSixth = 0);

// Closes the help box of theForm, as btnCloseHelp does, and leaves theHeading on it.
void CloseHelpBox(Form &theForm, const Text &theHeading = "");

// The same if the box is open; called before a screen is left.
void CloseHelpBoxIfOpen(Form &theForm, const Text &theHeading = "");
