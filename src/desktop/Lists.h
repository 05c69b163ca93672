// Lists of rows, and the pickers of drive and directory.
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
    void keyPressEvent(QKeyEvent *theEvent) override;

private:
    ListBox &list;
    ListBoxModel *rows;
    std::uint64_t revision = 0;
    int rowsShown = 0;
    bool isUpdating = false;
};

// The rows of a directory list: from the drive's root down to the current directory, each deeper one indented, and its
// subdirectories below.
class DirListModel : public QAbstractListModel
{
    Q_OBJECT
public:
    DirListModel(DirList &theList, QObject *theParent) : QAbstractListModel(theParent), list(theList) {}
    int rowCount(const QModelIndex &theParent = {}) const override;
    QVariant data(const QModelIndex &theIndex, int theRole) const override;
    void Reset();
    // The row of the view that shows row theIndex of the directory list, and back.
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

private:
    void GoToRow(const QModelIndex &theRow);
    DirList &list;
    DirListModel *rows;
    Text path;
    std::shared_ptr<const std::vector<Text>> names;
    bool isUpdating = false;
};

// The drives; beside the letter stands what the host calls them.
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
