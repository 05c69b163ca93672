// A check box; its words stand in a label beside it, which it may reach below, so that a click there ticks it too.
#pragma once
#include "toolkit/Controls.h"
#include <QCheckBox>

class CheckBoxWidget : public QCheckBox
{
    Q_OBJECT
public:
    CheckBoxWidget(CheckBox &theBox, QWidget *theParent);
    void Update();

protected:
    bool hitButton(const QPoint &thePoint) const override;
    void paintEvent(QPaintEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    CheckBox &box;
};
