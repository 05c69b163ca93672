#include "desktop/Placement.h"
#include "desktop/Window.h"
#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

QRect Placement::Fitted(QRect theFrame, const QRect &theFree)
{
    theFrame.moveRight(std::min(theFrame.right(), theFree.right()));
    theFrame.moveBottom(std::min(theFrame.bottom(), theFree.bottom()));
    theFrame.moveLeft(std::max(theFrame.left(), theFree.left()));
    theFrame.moveTop(std::max(theFrame.top(), theFree.top()));
    return theFrame;
}

void Placement::Open(Window &theWindow)
{
    QRect free = theWindow.screen()->availableGeometry();
    // The size of a report window is the one that it gets when the user restores it from maximized.
    if (theWindow.TheForm.Design.Sizable)
        theWindow.resize(free.size() * 4 / 5);
    QRect frame = theWindow.rect();
    frame.moveCenter(free.center());
    if (!theWindow.IsWizard()) {
        theWindow.move(frame.topLeft());
    } else {
        if (isDragged) {
            frame.moveTopLeft(home);
            if (const QScreen *there = QGuiApplication::screenAt(frame.center()))
                free = there->availableGeometry();
        } else {
            home = frame.topLeft();
        }
        // The title bar is not known before the window is on the display; 40 pixels hold that of most desktops.
        frame.setHeight(frame.height() + 40);
        theWindow.move(Fitted(frame, free).topLeft());
    }
    theWindow.TheForm.Now.Left = theWindow.x();
    theWindow.TheForm.Now.Top = theWindow.y();
}

void Placement::Drag(QPoint theWay)
{
    home += theWay;
    isDragged = true;
}
