// The widgets for texts that the user only reads.
#pragma once
#include "toolkit/Controls.h"
#include <QLabel>
#include <QTextEdit>

// A label. One with a Click works with the mouse only; for the keyboard there is a picture beside it.
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
    const bool isOneLine;  // shows a value; a long one is elided in the middle, and the tip shows all of it
    const bool isOnCard;   // painted on a white card
};

// The text of the help box. It scrolls when the text is long, and breaks long words.
class HelpTextView : public QTextEdit
{
    Q_OBJECT
public:
    HelpTextView(Label &theLabel, QWidget *theParent);
    void Update();

private:
    const Label &label;
};
