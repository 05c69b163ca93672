// What could not be read or written so far, as a table of three columns: file, reason, and how often it happened.
#pragma once
#include "disk/Losses.h"
#include <QAbstractTableModel>
#include <unordered_set>
#include <vector>

class Notices : public QAbstractTableModel
{
    Q_OBJECT
public:
    void Add(const Losses::Loss &theLoss);
    // Takes over how often each loss has happened by now.
    void RefreshTimes();
    bool IsEmpty() const { return lost.empty(); }
    // In one sentence: how many files are concerned.
    QString Summary() const;
    // The same in few words, for a narrow window.
    QString ShortSummary() const;
    // All rows, one line each.
    QString AsText() const;

    int rowCount(const QModelIndex &theParent = {}) const override;
    int columnCount(const QModelIndex &theParent = {}) const override;
    QVariant data(const QModelIndex &theIndex, int theRole) const override;
    QVariant headerData(int theColumn, Qt::Orientation theOrientation, int theRole) const override;

signals:
    void Added();

private:
    QString Cell(const Losses::Loss &theLoss, int theColumn) const;
    std::vector<Losses::Loss> lost;
    std::unordered_set<Text> files;
};
