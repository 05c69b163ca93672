#include "desktop/FocusRing.h"
#include "desktop/Theme.h"
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWidget>

static bool isShown = false;

void FocusRing::Watch()
{
    qApp->installEventFilter(new FocusRing(qApp));
}

bool FocusRing::IsShown()
{
    return isShown;
}

void FocusRing::Paint(QPainter &thePainter, const QPainterPath &theShape)
{
    thePainter.save();
    thePainter.setRenderHint(QPainter::Antialiasing);
    thePainter.setClipPath(theShape);
    // The clip hides the outer half of each line, so half of its width is visible.
    thePainter.strokePath(theShape, QPen(Theme::White, 7));
    thePainter.strokePath(theShape, QPen(Theme::FocusRing, 4));
    thePainter.restore();
}

bool FocusRing::eventFilter(QObject *, QEvent *theEvent)
{
    const bool isKey = theEvent->type() == QEvent::KeyPress || theEvent->type() == QEvent::ShortcutOverride;
    if ((isKey && !isShown) || (theEvent->type() == QEvent::MouseButtonPress && isShown)) {
        isShown = isKey;
        if (QWidget *focus = QApplication::focusWidget())
            focus->update();
    }
    return false;
}
