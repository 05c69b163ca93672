// A text box of one line.
#pragma once
#include "toolkit/Controls.h"
#include <QLineEdit>

class LineEdit : public QLineEdit
{
    Q_OBJECT
public:
    LineEdit(TextBox &theBox, QWidget *theParent);
    void Update();

signals:
    // A handler of the program's has seen a key: what it has changed is to be shown before the key takes effect.
    void HandlerRan();
    // Enter in a box whose program has no use for it.
    void EnterUnused();

protected:
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    bool TakesKey(int theKey);
    TextBox &box;
};
