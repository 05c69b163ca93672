#include "desktop/Meter.h"
#include <QPainter>

Meter::Meter(const QColor &theColour, QWidget *theParent) : QWidget(theParent), colour(theColour) {}

void Meter::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect(), 6, 6);
}
