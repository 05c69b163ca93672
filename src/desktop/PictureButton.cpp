#include "desktop/PictureButton.h"
#include "desktop/FocusRing.h"
#include "desktop/Pictures.h"
#include "desktop/Theme.h"
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

static constexpr double largeHeight = 80;  // a button this high has rounder corners

// The outline that the picture of a button shows inside theRect.
static QPainterPath OutlineOf(Role theRole, const QRectF &theRect)
{
    QPainterPath Result;
    double radius = theRect.height() >= largeHeight ? 10 : 7;
    if (theRole == Role::Help) {
        radius = theRect.height() / 2;
    } else if (theRole == Role::Repeat) {
        radius = 4;
    } else if (theRole == Role::Card) {
        // Only the upper corners are round: the card goes on below the picture.
        Result.addRoundedRect(theRect.adjusted(0, 0, 0, radius), radius, radius);
        QPainterPath upperPart;
        upperPart.addRect(theRect);
        return Result.intersected(upperPart);
    }
    Result.addRoundedRect(theRect, radius, radius);
    return Result;
}

PictureButton::PictureButton(Role theRole, QWidget *theParent) : QAbstractButton(theParent), role(theRole)
{
    setCursor(Qt::PointingHandCursor);
    // A press with the mouse leaves the focus where the user types.
    setFocusPolicy(Qt::TabFocus);
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
    const QPixmap &shown = PictureAt(picture, devicePixelRatioF());
    painter.drawPixmap(rect(), shown);
    const QPainterPath shape = OutlineOf(role, QRectF(rect()));
    painter.setRenderHint(QPainter::Antialiasing);
    if (shown.isNull()) {
        // The file of the picture is missing.
        painter.fillPath(shape, Theme::White);
        painter.strokePath(shape, QPen(Theme::Border, 2));
        painter.setPen(Theme::Pine);
        painter.drawText(
            rect(), Qt::AlignCenter | Qt::TextWordWrap, role == Role::Help ? QStringLiteral("?") : accessibleName());
    }
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
