// The ring around the widget that has the focus. It appears when the user presses a key and disappears with the next
// mouse click, so that mouse users do not see it.
#pragma once
#include <QObject>

class QPainter;
class QPainterPath;

class FocusRing : public QObject
{
    Q_OBJECT
public:
    // Starts to watch whether the user works with the keyboard or the mouse.
    static void Watch();
    static bool IsShown();
    // Paints the ring just inside theShape; it is visible on light and dark backgrounds.
    static void Paint(QPainter &thePainter, const QPainterPath &theShape);

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override;

private:
    using QObject::QObject;
};
