// A filled box with rounded corners. The background of the meter is one, and so is the box that slides across it.
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
