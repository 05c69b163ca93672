// The notice at the right end of the menu bar that says how many files could not be read or written. It is hidden while
// there is nothing to say, and never takes the focus by itself; a click opens the list.
#pragma once
#include "desktop/NoticeList.h"
#include <QAbstractButton>
#include <QPointer>

class NoticeStrip : public QAbstractButton
{
    Q_OBJECT
public:
    // Stands on theBar, and is a child of its window so that screen readers find it.
    NoticeStrip(Notices &theNotices, QWidget &theBar);

protected:
    bool eventFilter(QObject *theObject, QEvent *theEvent) override;
    void paintEvent(QPaintEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;
    void hideEvent(QHideEvent *theEvent) override;
    void enterEvent(QEnterEvent *theEvent) override;
    void leaveEvent(QEvent *theEvent) override;

private:
    void Update();
    void OpenList();
    Notices &notices;
    QWidget &bar;
    QPointer<NoticeList> list;
};
