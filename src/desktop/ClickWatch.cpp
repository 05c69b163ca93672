#include "desktop/ClickWatch.h"
#include <QCoreApplication>
#include <QKeyEvent>

// From the click until the page has asked for what it leads to.
static constexpr qint64 milliseconds = 2000;

// The browser replaces the widget that gets the events from page to page, so those of all widgets are watched.
ClickWatch::ClickWatch(QWidget &theView) : view(theView)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ClickWatch::HasClick() const
{
    return last.isValid() && !last.hasExpired(milliseconds);
}

static bool IsClick(const QEvent &theEvent)
{
    switch (theEvent.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
        return true;
    case QEvent::KeyPress: {
        const int key = static_cast<const QKeyEvent &>(theEvent).key();
        return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space;
    }
    default:
        return false;
    }
}

bool ClickWatch::eventFilter(QObject *theObject, QEvent *theEvent)
{
    if (IsClick(*theEvent))
        if (const auto *widget = qobject_cast<QWidget *>(theObject);
            widget && (widget == &view || view.isAncestorOf(widget)))
            last.start();
    return false;
}
