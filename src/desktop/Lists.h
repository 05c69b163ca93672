// The widgets for lists, and the pickers for drive and directory.
#pragma once
#include "toolkit/Controls.h"
#include "toolkit/Pickers.h"
#include <QAbstractListModel>
#include <QComboBox>
#include <QListView>

// The rows of a list box.
class ListBoxModel : public QAbstractListModel
{
    Q_OBJECT
public:
    ListBoxModel(ListBox &theList, QObject *theParent) : QAbstractListModel(theParent), list(theList) {}
    int rowCount(const QModelIndex &theParent = {}) const override;
    QVariant data(const QModelIndex &theIndex, int theRole) const override;
    void Reset();

private:
    ListBox &list;
};

class ListBoxView : public QListView
{
    Q_OBJECT
public:
    ListBoxView(ListBox &theList, QWidget *theParent);
    void Update();

protected:
    void currentChanged(const QModelIndex &theCurrent, const QModelIndex &thePrevious) override;
    void focusInEvent(QFocusEvent *theEvent) override;
    void keyPressEvent(QKeyEvent *theEvent) override;
    void resizeEvent(QResizeEvent *theEvent) override;

private:
    ListBox &list;
    ListBoxModel *rows;
    std::uint64_t revision = 0;
    int rowsShown = 0;
    bool isUpdating = false;
};

// The rows of a directory list: the directories from the drive's root down to the current one, each indented further,
// and below them the subdirectories of the current one.
class DirListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    static constexpr int NoteRole = Qt::UserRole;  // a few words about a directory
    DirListModel(DirList &theList, QObject *theParent) : QAbstractListModel(theParent), list(theList) {}
    int rowCount(const QModelIndex &theParent = {}) const override;
    QVariant data(const QModelIndex &theIndex, int theRole) const override;
    void Reset();
    // Convert between a row of the directory list and the row of the view that shows it.
    int ViewRow(int theIndex) const;
    int ListRow(int theViewRow) const;

private:
    DirList &list;
    int depth = 0;
};

class DirListView : public QListView
{
    Q_OBJECT
public:
    DirListView(DirList &theList, QWidget *theParent);
    void Update();

protected:
    void currentChanged(const QModelIndex &theCurrent, const QModelIndex &thePrevious) override;
    void keyPressEvent(QKeyEvent *theEvent) override;
    void resizeEvent(QResizeEvent *theEvent) override;

private:
    void GoToRow(const QModelIndex &theRow);
    DirList &list;
    DirListModel *rows;
    Text path;
    std::shared_ptr<const std::vector<Text>> names;
    bool isUpdating = false;
};

// The drives, each with its letter and its place on the host.
class DriveComboBox : public QComboBox
{
    Q_OBJECT
public:
    DriveComboBox(DriveList &theList, QWidget *theParent);
    void Update();

protected:
    void paintEvent(QPaintEvent *theEvent) override;

private:
    void ReadDrives();
    DriveList &list;
};
