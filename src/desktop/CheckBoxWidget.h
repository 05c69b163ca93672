// A check box without a text of its own. It may extend below its label, so that a click on the label ticks it too.
#pragma once
#include "toolkit/Controls.h"
#include <QCheckBox>

class CheckBoxWidget : public QCheckBox
{
    Q_OBJECT
public:
    CheckBoxWidget(CheckBox &theBox, QWidget *theParent);
    void Update();

signals:
    // Space ticks the box; Enter leads on, as it does in a text box.
    void EnterUnused();

protected:
    bool hitButton(const QPoint &thePoint) const override;
    void paintEvent(QPaintEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    CheckBox &box;
};
