// The presentation used while there is no other, and a base for those that need only some of the calls.
#pragma once
#include "toolkit/Presentation.h"
#include "toolkit/Services.h"

// Shows nothing and answers every question with No.
struct QuietPresentation : Presentation {
    void Show(Form &) override {}
    void Unload(Form &) override {}
    void Changed(Element &) override {}
    void Focus(Control &) override {}
    void DoEvents() override {}
    void WaitEvents() override {}
    void PaintNow() override {}
    int MsgBox(const Text &, int theFlags, const Text &) override { return theFlags & msgYesNo ? answerNo : answerOK; }
    Text OpenFile(const Text &) override { return {}; }
    void Beep() override {}
    void Navigate(Browser &, const Text &) override {}
    bool GoBack(Browser &) override { return false; }
    bool GoForward(Browser &) override { return false; }
    void Refresh(Browser &) override {}
    void Stop(Browser &) override {}
    void Standstill(const Text &, const Text &) override {}
    void Lost(const Losses::Loss &) override {}
    void Failure(const RuntimeFailure &) override {}
    void Ended(int) override {}
};
