#include "desktop/Notices.h"
#include "desktop/QtText.h"

void Notices::Add(const Losses::Loss &theLoss)
{
    const int row = rowCount();
    beginInsertRows({}, row, row);
    lost.push_back(theLoss);
    files.insert(theLoss.File);
    endInsertRows();
    emit Added();
}

void Notices::RefreshTimes()
{
    if (lost.empty())
        return;
    // Losses are handed out in the order in which they happened, so one pass finds them all.
    std::size_t row = 0;
    for (const Losses::Loss &loss : Losses::All())
        if (row < lost.size() && loss.File == lost[row].File && loss.Reason == lost[row].Reason)
            lost[row++].Times = loss.Times;
    emit dataChanged(index(0, columnCount() - 1), index(rowCount() - 1, columnCount() - 1));
}

QString Notices::Summary() const
{
    return files.size() == 1 ? tr("1 file could not be read or written")
                             : tr("%1 files could not be read or written").arg(files.size());
}

QString Notices::ShortSummary() const
{
    return files.size() == 1 ? tr("1 file") : tr("%1 files").arg(files.size());
}

QString Notices::AsText() const
{
    QString Result;
    for (const Losses::Loss &loss : lost) {
        Result += Cell(loss, 0) + QStringLiteral(": ") + Cell(loss, 1);
        Result += loss.Times == 1 ? QStringLiteral("\n") : tr(" (%1 times)\n").arg(loss.Times);
    }
    return Result;
}

QString Notices::Cell(const Losses::Loss &theLoss, int theColumn) const
{
    return theColumn == 2 ? QString::number(theLoss.Times) : ToQString(theColumn == 0 ? theLoss.File : theLoss.Reason);
}

int Notices::rowCount(const QModelIndex &theParent) const
{
    return theParent.isValid() ? 0 : static_cast<int>(lost.size());
}

int Notices::columnCount(const QModelIndex &theParent) const
{
    return theParent.isValid() ? 0 : 3;
}

QVariant Notices::data(const QModelIndex &theIndex, int theRole) const
{
    const QString words = Cell(lost.at(static_cast<std::size_t>(theIndex.row())), theIndex.column());
    if (theRole == Qt::DisplayRole)
        return words;
    if (theRole == Qt::ToolTipRole)
        return ToolTipText(words);
    if (theRole == Qt::TextAlignmentRole && theIndex.column() == 2)
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant Notices::headerData(int theColumn, Qt::Orientation theOrientation, int theRole) const
{
    if (theOrientation != Qt::Horizontal)
        return {};
    if (theRole == Qt::TextAlignmentRole)
        return static_cast<int>((theColumn == 2 ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    if (theRole != Qt::DisplayRole)
        return {};
    return theColumn == 0 ? tr("File or directory") : theColumn == 1 ? tr("Reason") : tr("Times");
}
