// The widget for a text box.
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
    // A handler of the program has seen a key; what it changed must be shown before the key takes effect.
    void HandlerRan();
    // Enter was pressed in a box that has no handler for keys.
    void EnterUnused();

protected:
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    bool TakesKey(int theKey);
    void EnterLines(const QString &theText);
    TextBox &box;
};
