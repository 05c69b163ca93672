// The menu bar of a screen, built from its menu items.
#pragma once
#include "toolkit/Controls.h"
#include <QMenuBar>
#include <map>

class MenuBarWidget : public QMenuBar
{
    Q_OBJECT
public:
    static constexpr int barHeight = 24;
    MenuBarWidget(Form &theForm, QWidget *theParent);
    // Whether the screen has menu items, and so needs a menu bar.
    static bool IsWanted(const Form &theForm);
    void Update(MenuItem &theItem);

private:
    void Add(MenuItem &theItem);
    std::map<const MenuItem *, QAction *> actions;
};
