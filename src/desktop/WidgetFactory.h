// Makes the widget that shows a control.
#pragma once
#include "toolkit/Controls.h"
#include <QWidget>

class Window;

struct ControlWidget {
    QWidget *Widget = nullptr;     // null for a control that is not shown in the window's body
    std::function<void()> Update;  // shows what the control holds now; place, visibility and enabling are the window's
};

// The widget belongs to theWindow and passes on what the user does with it.
ControlWidget MakeWidget(Control &theControl, Window &theWindow);
