// What all screens of the wizard have in common.
#pragma once
#include "toolkit/Controls.h"

// Gives a screen its size, title, background (a file of imgs, "bg_main01.jpg" when empty), its help frame's pictures,
// the pictures of btnNext and btnBack where withNext and withBack are 1, and the tick of optShowWelcome. Called first
// in a screen's load. If a picture is missing, the rest is left undone.
void ApplyScreenLook(Form &theForm, const Text &theBackground, int withNext, int withBack);

// Asks whether to exit; on Yes the program ends at once, with nothing saved. Returns on No.
void ConfirmExit();
