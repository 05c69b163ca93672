#include "desktop/CheckBoxWidget.h"
#include "desktop/Actions.h"
#include "desktop/FocusRing.h"
#include "desktop/Theme.h"
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

CheckBoxWidget::CheckBoxWidget(CheckBox &theBox, QWidget *theParent) : QCheckBox(theParent), box(theBox)
{
    // Not clicked, which is not sent when a screen reader toggles the box.
    connect(this, &QCheckBox::toggled, this, [this](bool isTicked) {
        if (isTicked == box.Now.Ticked)
            return;
        Actions::Click(box);
        Update();
    });
}

void CheckBoxWidget::Update()
{
    setChecked(box.Now.Ticked);
}

bool CheckBoxWidget::hitButton(const QPoint &thePoint) const
{
    return rect().contains(thePoint);
}

void CheckBoxWidget::keyPressEvent(QKeyEvent *theEvent)
{
    if (theEvent->key() == Qt::Key_Return || theEvent->key() == Qt::Key_Enter)
        emit EnterUnused();
    else
        QCheckBox::keyPressEvent(theEvent);
}

void CheckBoxWidget::paintEvent(QPaintEvent *)
{
    constexpr double side = 16;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF square(3.5, std::floor((height() - side) / 2) + 0.5, side - 1, side - 1);
    painter.setPen(QPen(underMouse() ? Theme::Fern : Theme::Border, 1));
    painter.setBrush(isChecked() ? Theme::Fern : isDown() ? Theme::MintHover : Theme::White);
    painter.drawRoundedRect(square, 4, 4);
    if (isChecked()) {
        painter.setPen(QPen(Theme::White, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF at = square.topLeft();
        painter.drawPolyline(QPolygonF{at + QPointF(3.4, 7.9), at + QPointF(6.2, 10.8), at + QPointF(11.7, 4.5)});
    }
    if (hasFocus() && FocusRing::IsShown()) {
        QPainterPath around;
        around.addRoundedRect(QRectF(rect()), 5, 5);
        FocusRing::Paint(painter, around);
    }
}
