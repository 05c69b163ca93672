// The ring around what the keyboard acts on. It shows once the keyboard is used and goes with the next click, so that
// who works with the mouse doesn't see it.
#pragma once
#include <QObject>

class QPainter;
class QPainterPath;

class FocusRing : public QObject
{
    Q_OBJECT
public:
    // Watches what the user works with, from now on.
    static void Watch();
    static bool IsShown();
    // Paints the ring just inside theShape, on light and dark ground alike.
    static void Paint(QPainter &thePainter, const QPainterPath &theShape);

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override;

private:
    using QObject::QObject;
};
