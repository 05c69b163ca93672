// Where the windows of the screens open.
#pragma once
#include <QPoint>
#include <QRect>

class Window;

class Placement
{
public:
    // Moves a new window to its place: the middle of its display, or where the user has dragged the wizard to.
    void Open(Window &theWindow);
    // The user has dragged a window of the wizard by theWay.
    void Drag(QPoint theWay);
    // theFrame, moved into theFree. Where it is too large, its upper left corner stays in.
    static QRect Fitted(QRect theFrame, const QRect &theFree);

private:
    QPoint home;  // of the upper left corner of a screen whose help box is closed
    bool isDragged = false;
};
