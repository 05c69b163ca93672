#include "desktop/FindBar.h"
#include "desktop/Theme.h"
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QToolButton>

FindBar::FindBar(QWidget *theParent) : QWidget(theParent), line(new QLineEdit(this)), count(new QLabel(this))
{
    setObjectName(QStringLiteral("findBar"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setStyleSheet(Theme::LineEditStyle() + Theme::ToolBarStyle());
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 6);
    row->setSpacing(8);
    line->setAccessibleName(tr("Find on this page"));
    line->setPlaceholderText(tr("Find on this page"));
    line->setFixedSize(260, 30);
    row->addWidget(line);
    const auto addButton = [&](Qt::ArrowType theArrow, const QString &theText, const QString &theTip) {
        auto *button = new QToolButton(this);
        button->setText(theText);
        button->setToolTip(theTip);
        button->setArrowType(theArrow);
        button->setToolButtonStyle(theArrow == Qt::NoArrow ? Qt::ToolButtonTextOnly : Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::StrongFocus);
        row->addWidget(button);
        return button;
    };
    connect(addButton(Qt::UpArrow, tr("Previous"), tr("Go to the previous place (Shift+Enter)")), &QToolButton::clicked,
        this, [this] { emit Find(true); });
    connect(addButton(Qt::DownArrow, tr("Next"), tr("Go to the next place (Enter)")), &QToolButton::clicked, this,
        [this] { emit Find(false); });
    row->addWidget(count);
    row->addStretch();
    connect(addButton(Qt::NoArrow, tr("Close"), tr("Close the search (Esc)")), &QToolButton::clicked, this,
        &FindBar::Close);
    connect(line, &QLineEdit::textChanged, this, [this] { emit Find(false); });
    hide();
}

void FindBar::Open()
{
    show();
    line->setFocus(Qt::ShortcutFocusReason);
    line->selectAll();
    if (!Wanted().isEmpty())
        emit Find(false);
}

void FindBar::Close()
{
    if (isHidden())
        return;
    hide();
    emit Closed();
}

void FindBar::ShowPlace(int thePlace, int thePlaces)
{
    const QLocale numbers(QLocale::English);
    count->setText(Wanted().isEmpty() || thePlaces < 0 ? QString()
                   : thePlaces == 0                    ? tr("Not found")
                                    : tr("%1 of %2").arg(numbers.toString(thePlace), numbers.toString(thePlaces)));
}

// Esc would otherwise close the help of a screen.
bool FindBar::event(QEvent *theEvent)
{
    if (theEvent->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(theEvent)->key() == Qt::Key_Escape)
        theEvent->accept();
    return QWidget::event(theEvent);
}

void FindBar::keyPressEvent(QKeyEvent *theEvent)
{
    switch (theEvent->key()) {
    case Qt::Key_Escape:
        return Close();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit Find(theEvent->modifiers().testFlag(Qt::ShiftModifier));
        return;
    default:
        QWidget::keyPressEvent(theEvent);
    }
}
