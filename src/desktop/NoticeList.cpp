#include "desktop/NoticeList.h"
#include "desktop/Theme.h"
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QTreeView>
#include <QVBoxLayout>

using namespace std::chrono_literals;

static QTreeView *MakeTable(Notices &theNotices, QWidget *theParent)
{
    auto *table = new QTreeView(theParent);
    table->setObjectName(QStringLiteral("notices"));
    table->setAccessibleName(QObject::tr("Files that could not be read or written"));
    table->setModel(&theNotices);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setStyleSheet(Theme::TableStyle());
    table->header()->setStretchLastSection(false);
    table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    table->header()->resizeSection(1, 210);
    table->header()->resizeSection(2, 64);
    return table;
}

NoticeList::NoticeList(Notices &theNotices, QWidget *theWindow) : QWidget(theWindow, Qt::Dialog)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("noticeList"));
    setWindowTitle(tr("Files that could not be read or written"));
    setStyleSheet(Theme::MessageBoxStyle());
    auto *words = new QLabel(
        tr("These files and directories could not be read or written. Ferncastle went on without them."), this);
    words->setWordWrap(true);
    auto *table = MakeTable(theNotices, this);
    auto *copy = new QPushButton(tr("Copy"), this);
    copy->setToolTip(tr("Copy the list to the clipboard"));
    auto *done = new QPushButton(tr("Close"), this);
    connect(copy, &QPushButton::clicked, &theNotices, [&theNotices] {
        theNotices.RefreshTimes();
        QGuiApplication::clipboard()->setText(theNotices.AsText());
    });
    connect(done, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    auto *buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(copy);
    buttons->addWidget(done);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(18, 18, 18, 18);
    rows->setSpacing(12);
    rows->addWidget(words);
    rows->addWidget(table);
    rows->addLayout(buttons);
    resize(680, 340);
    table->setFocus();
    // A repeated failure only counts up, and nothing announces it.
    theNotices.RefreshTimes();
    auto *clock = new QTimer(this);
    clock->callOnTimeout(&theNotices, &Notices::RefreshTimes);
    clock->start(500ms);
}
