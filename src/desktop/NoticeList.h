// The window that lists what could not be read or written. It is not modal: the program goes on meanwhile.
#pragma once
#include "desktop/Notices.h"
#include <QWidget>

class NoticeList : public QWidget
{
    Q_OBJECT
public:
    // Deletes itself when it is closed.
    NoticeList(Notices &theNotices, QWidget *theWindow);
};
