#include "desktop/Labels.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include <QMouseEvent>
#include <QPainter>

static constexpr int cardHeight = 26;  // counters at least this high are painted on a card
static constexpr int cardMargin = 9;

TextLabel::TextLabel(Label &theLabel, QWidget *theParent)
    : QLabel(theParent), label(theLabel),
      isOneLine(label.Design.Style == TextStyle::Value || label.Design.Style == TextStyle::Counter ||
                label.Design.Style == TextStyle::Status),
      isOnCard(label.Design.Style == TextStyle::Counter && label.Design.At.Height >= cardHeight)
{
    setTextFormat(Qt::PlainText);
    setFont(Theme::FontOf(label.Design.Style));
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, Theme::TextColourOf(label.Design.Style));
    setPalette(colours);
    setWordWrap(!isOneLine);
    const int lineHeight = fontMetrics().lineSpacing();
    const bool isHigh = label.Design.At.Height >= 2 * lineHeight;
    setAlignment(label.Design.Style == TextStyle::Splash ? Qt::AlignCenter
                 : isHigh                                ? Qt::AlignTop | Qt::AlignLeft
                                                         : Qt::AlignVCenter | Qt::AlignLeft);
    if (label.Design.Style == TextStyle::Counter && isOnCard)
        setAlignment(Qt::AlignVCenter | Qt::AlignRight);
    if (label.Design.Style == TextStyle::HelpHeading)
        setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    if (isOnCard)
        setContentsMargins(cardMargin, 0, cardMargin, 0);
    if (label.Design.Style == TextStyle::Value)
        setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Otherwise the mouse goes to what lies below: a check box extends below its label.
    if (label.Design.Click)
        setCursor(Qt::PointingHandCursor);
    else if (!isOneLine)
        setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TextLabel::Update()
{
    if (QString words = ToQString(label.Now.Caption); words != text()) {
        setText(words);
        if (isOneLine)
            setToolTip(
                fontMetrics().horizontalAdvance(words) > contentsRect().width() ? ToolTipText(words) : QString());
    }
}

void TextLabel::mouseReleaseEvent(QMouseEvent *theEvent)
{
    QLabel::mouseReleaseEvent(theEvent);
    if (theEvent->button() == Qt::LeftButton && rect().contains(theEvent->position().toPoint()))
        emit Pressed();
}

void TextLabel::paintEvent(QPaintEvent *theEvent)
{
    // A value that is too long shows its start while part of it is selected.
    const bool isSelectable = textInteractionFlags().testFlag(Qt::TextSelectableByMouse);
    if (!isOneLine || (isSelectable && (toolTip().isEmpty() || hasSelectedText()))) {
        QLabel::paintEvent(theEvent);
        return;
    }
    QPainter painter(this);
    if (isOnCard) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Theme::CardLine);
        painter.setBrush(Theme::White);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect place = contentsRect();
    painter.drawText(place, static_cast<int>(alignment()) | Qt::TextSingleLine,
        fontMetrics().elidedText(text(), Qt::ElideMiddle, place.width()));
}

HelpTextView::HelpTextView(Label &theLabel, QWidget *theParent) : QTextEdit(theParent), label(theLabel)
{
    setReadOnly(true);
    setTabChangesFocus(true);
    setFont(Theme::FontOf(label.Design.Style));
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(0);
    setViewportMargins(0, 0, 4, 0);
    setStyleSheet(Theme::HelpTextStyle());
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
}

void HelpTextView::Update()
{
    if (const QString words = ToQString(label.Now.Caption); words != toPlainText())
        setPlainText(words);
}
