#include "desktop/RoundedBox.h"
#include <QPainter>

RoundedBox::RoundedBox(const QColor &theColour, QWidget *theParent) : QWidget(theParent), colour(theColour) {}

void RoundedBox::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect(), 6, 6);
}
