#include "desktop/PictureButton.h"
#include "desktop/FocusRing.h"
#include "desktop/Pictures.h"
#include <QKeyEvent>
#include <QPainter>

PictureButton::PictureButton(QWidget *theParent) : QAbstractButton(theParent)
{
    setCursor(Qt::PointingHandCursor);
}

void PictureButton::SetPicture(const Text &thePath)
{
    if (picture == thePath)
        return;
    picture = thePath;
    update();
}

void PictureButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(0.45);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), PictureAt(picture, devicePixelRatioF()));
    const QPainterPath shape = ShapeOf(picture, QRectF(rect()));
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown())
        painter.fillPath(shape, QColor(0, 0, 0, 56));
    else if (underMouse() && isEnabled())
        painter.fillPath(shape, QColor(0, 0, 0, 22));
    if (hasFocus() && FocusRing::IsShown())
        FocusRing::Paint(painter, shape);
}

void PictureButton::keyPressEvent(QKeyEvent *theEvent)
{
    if (theEvent->key() == Qt::Key_Return || theEvent->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(theEvent);
}

void PictureButton::enterEvent(QEnterEvent *)
{
    update();
}

void PictureButton::leaveEvent(QEvent *)
{
    update();
}
