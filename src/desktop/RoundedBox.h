// A plain filled box with round corners: the ground of the meter, and the box that slides through it.
#pragma once
#include <QColor>
#include <QWidget>

class RoundedBox : public QWidget
{
    Q_OBJECT
public:
    RoundedBox(const QColor &theColour, QWidget *theParent);

protected:
    void paintEvent(QPaintEvent *theEvent) override;

private:
    const QColor colour;
};
