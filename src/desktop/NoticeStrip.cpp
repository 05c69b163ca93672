#include "desktop/NoticeStrip.h"
#include "desktop/FocusRing.h"
#include "desktop/Theme.h"
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

static constexpr int signWidth = 26;  // the warning sign with the space on both sides of it
static constexpr int endWidth = 10;   // the space after the words
static constexpr int gap = 8;         // to the menus and to the edge of the window

NoticeStrip::NoticeStrip(Notices &theNotices, QWidget &theBar)
    : QAbstractButton(theBar.window()), notices(theNotices), bar(theBar)
{
    setObjectName(QStringLiteral("noticeStrip"));
    setFont(Theme::FontOf(TextStyle::Status));
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleDescription(tr("Opens the list"));
    connect(this, &QAbstractButton::clicked, this, &NoticeStrip::OpenList);
    connect(&notices, &Notices::Added, this, &NoticeStrip::Update);
    bar.installEventFilter(this);
    hide();
    Update();
}

// The menus have the first claim to the place: with little room, few words must do.
void NoticeStrip::Update()
{
    if (notices.IsEmpty())
        return;
    const QString words = notices.Summary();
    const int room = bar.width() - bar.sizeHint().width() - 2 * gap;
    const auto widthOf = [this](const QString &theWords) {
        return signWidth + fontMetrics().horizontalAdvance(theWords) + endWidth;
    };
    setText(widthOf(words) <= room ? words : notices.ShortSummary());
    setAccessibleName(words);
    setToolTip(words);
    const int width = std::min(widthOf(text()), room);
    setGeometry(bar.width() - gap - width, bar.y() + 2, width, bar.height() - 4);
    setVisible(true);
    raise();
    update();
}

bool NoticeStrip::eventFilter(QObject *theObject, QEvent *theEvent)
{
    if (theObject == &bar && (theEvent->type() == QEvent::Resize || theEvent->type() == QEvent::Show))
        Update();
    // The menu bar itself takes note of the change only after this.
    if (theObject == &bar && theEvent->type() == QEvent::ActionChanged)
        QMetaObject::invokeMethod(this, &NoticeStrip::Update, Qt::QueuedConnection);
    return false;
}

void NoticeStrip::OpenList()
{
    if (!list)
        list = new NoticeList(notices, window());
    list->show();
    list->raise();
    list->activateWindow();
}

// The list belongs to a screen: it closes with it, but not when the window is only minimized.
void NoticeStrip::hideEvent(QHideEvent *theEvent)
{
    if (list && !theEvent->spontaneous())
        list->close();
}

void NoticeStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath shape;
    shape.addRoundedRect(QRectF(rect()), height() / 2.0, height() / 2.0);
    painter.fillPath(shape, underMouse() || isDown() ? Theme::White : Theme::MintHover);
    // A triangle with an exclamation mark.
    const QPointF top(16, height() / 2.0 - 6);
    painter.setPen(QPen(Theme::Rust, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(QPolygonF{top, top + QPointF(6.5, 11), top + QPointF(-6.5, 11)});
    painter.drawLine(top + QPointF(0, 4), top + QPointF(0, 6.4));
    painter.drawPoint(top + QPointF(0, 8.8));
    painter.setPen(Theme::Ink);
    painter.drawText(
        rect().adjusted(signWidth, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text());
    if (hasFocus() && FocusRing::IsShown())
        FocusRing::Paint(painter, shape);
}

void NoticeStrip::keyPressEvent(QKeyEvent *theEvent)
{
    if (theEvent->key() == Qt::Key_Return || theEvent->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(theEvent);
}

void NoticeStrip::enterEvent(QEnterEvent *)
{
    update();
}

void NoticeStrip::leaveEvent(QEvent *)
{
    update();
}
