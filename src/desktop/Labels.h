// Texts on a screen that nobody types into.
#pragma once
#include "toolkit/Controls.h"
#include <QLabel>
#include <QTextEdit>

// A label; one with a Click is pressed with the mouse alone, since the picture beside it does the same for the
// keyboard.
class TextLabel : public QLabel
{
    Q_OBJECT
public:
    TextLabel(Label &theLabel, QWidget *theParent);
    void Update();

signals:
    void Pressed();

protected:
    void mouseReleaseEvent(QMouseEvent *theEvent) override;
    void paintEvent(QPaintEvent *theEvent) override;

private:
    const Label &label;
    const bool isOneLine;  // a value: too long a text is elided in the middle when painted, and told by the tip
    const bool isOnCard;
};

// The text of the help box: scrolls where it is longer than its place, and breaks inside a long word.
class HelpTextView : public QTextEdit
{
    Q_OBJECT
public:
    HelpTextView(Label &theLabel, QWidget *theParent);
    void Update();

private:
    const Label &label;
};
