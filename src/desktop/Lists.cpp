#include "desktop/Lists.h"
#include "desktop/Actions.h"
#include "desktop/Hints.h"
#include "desktop/QtText.h"
#include "desktop/Theme.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "toolkit/Pickers.h"
#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <map>
#include <tuple>

static void ApplyStyle(QListView &theView)
{
    theView.setFont(Theme::FontOf(TextStyle::Body));
    theView.setUniformItemSizes(true);
    theView.setEditTriggers(QAbstractItemView::NoEditTriggers);
    theView.setTextElideMode(Qt::ElideMiddle);
    theView.setStyleSheet(Theme::ListStyle());
    theView.setMouseTracking(true);
    theView.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    theView.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
}

// The space below the last whole row of theView.
static QMargins SpareSpace(const QListView &theView)
{
    const int row = std::max(1, theView.sizeHintForRow(0));
    return {0, 0, 0, theView.contentsRect().height() % row};
}

// Screen readers select a row without making it current, or clear the selection. The program knows only the current
// row, so it follows the selection and stays selected.
static void FollowSelection(QListView &theView)
{
    QObject::connect(
        theView.selectionModel(), &QItemSelectionModel::selectionChanged, &theView,
        [&theView] {
            const QModelIndexList selected = theView.selectionModel()->selectedIndexes();
            const QModelIndex row = selected.isEmpty() ? theView.currentIndex() : selected.first();
            if (row.isValid() && (selected.isEmpty() || row != theView.currentIndex()))
                theView.selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
        },
        Qt::QueuedConnection);
}

// Used instead of the view's "activated" signal, which some desktops send for a single click.
static bool IsEnter(const QKeyEvent &theEvent)
{
    return theEvent.key() == Qt::Key_Return || theEvent.key() == Qt::Key_Enter;
}

int ListBoxModel::rowCount(const QModelIndex &theParent) const
{
    return theParent.isValid() ? 0 : static_cast<int>(list.NowRows.size());
}

QVariant ListBoxModel::data(const QModelIndex &theIndex, int theRole) const
{
    const auto row = static_cast<std::size_t>(theIndex.row());
    if ((theRole != Qt::DisplayRole && theRole != Qt::ToolTipRole) || row >= list.NowRows.size())
        return {};
    if (theRole == Qt::ToolTipRole)
        return ToolTipText(Hints::TipOf(list, theIndex.row()));
    // A row is one line, whatever it holds.
    static const QRegularExpression lineBreaks(QStringLiteral("[\\r\\n]"));
    return ToQString(list.NowRows[row]).replace(lineBreaks, QStringLiteral("\u21B5"));
}

void ListBoxModel::Reset()
{
    beginResetModel();
    endResetModel();
}

ListBoxView::ListBoxView(ListBox &theList, QWidget *theParent)
    : QListView(theParent), list(theList), rows(new ListBoxModel(theList, this))
{
    ApplyStyle(*this);
    setModel(rows);
    FollowSelection(*this);
    connect(this, &QListView::doubleClicked, this, [this] { Actions::DoubleClick(list); });
}

void ListBoxView::Update()
{
    if (isHidden())
        return;
    const QScopedValueRollback<bool> updating(isUpdating, true);
    if (revision != list.Revision()) {
        revision = list.Revision();
        const int top = verticalScrollBar()->value();
        const int before = rowsShown;
        rows->Reset();
        rowsShown = rows->rowCount();
        // A row that was just added must be visible.
        if (rowsShown == before + 1)
            scrollToBottom();
        else
            verticalScrollBar()->setValue(top);
    }
    const QModelIndex row = list.NowIndex < 0 ? QModelIndex() : rows->index(list.NowIndex);
    if (row != currentIndex()) {
        setCurrentIndex(row);
        if (!row.isValid())
            clearSelection();
    }
}

void ListBoxView::currentChanged(const QModelIndex &theCurrent, const QModelIndex &thePrevious)
{
    QListView::currentChanged(theCurrent, thePrevious);
    if (!isUpdating && theCurrent.isValid() && theCurrent.row() != list.NowIndex)
        Actions::Select(list, theCurrent.row());
}

// Qt makes a row current when the focus comes, but the user has not chosen it.
void ListBoxView::focusInEvent(QFocusEvent *theEvent)
{
    const QScopedValueRollback<bool> updating(isUpdating, true);
    QListView::focusInEvent(theEvent);
    if (list.NowIndex < 0)
        setCurrentIndex({});
}

void ListBoxView::resizeEvent(QResizeEvent *theEvent)
{
    QListView::resizeEvent(theEvent);
    setViewportMargins(SpareSpace(*this));
}

void ListBoxView::keyPressEvent(QKeyEvent *theEvent)
{
    if (IsEnter(*theEvent) && list.Design.DblClick)
        Actions::DoubleClick(list);
    else if (theEvent->key() == Qt::Key_Space && !currentIndex().isValid())
        setCurrentIndex(rows->index(0));
    else
        QListView::keyPressEvent(theEvent);
}

// A folder icon that includes the indent of its row. The text of the row then starts with the name, so that the user
// can find a row by typing.
static QPixmap FolderPicture(int theDepth, bool isOpen, bool isDim)
{
    static std::map<std::tuple<int, bool, bool>, QPixmap> kept;
    QPixmap &Result = kept[{theDepth, isOpen, isDim}];
    if (!Result.isNull())
        return Result;
    constexpr int side = 16, indent = 14, fineness = 3;
    Result = QPixmap((side + theDepth * indent) * fineness, side * fineness);
    Result.setDevicePixelRatio(fineness);
    Result.fill(Qt::transparent);
    QPainter painter(&Result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(theDepth * indent, 0);
    painter.setPen(QPen(isDim ? Theme::Border : Theme::AmberDark, 1));
    painter.setBrush(isOpen ? Theme::White : isDim ? Theme::Line : Theme::Amber);
    painter.drawRoundedRect(QRectF(1.5, 2.5, 6.5, 5), 1.5, 1.5);
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 9), 1.5, 1.5);
    if (isOpen) {
        painter.setBrush(isDim ? Theme::Line : Theme::Amber);
        painter.drawRoundedRect(QRectF(1.5, 8, 13, 5.5), 1.5, 1.5);
    }
    return Result;
}

int DirListModel::ViewRow(int theIndex) const
{
    return depth + theIndex;
}

int DirListModel::ListRow(int theViewRow) const
{
    return theViewRow - depth;
}

int DirListModel::rowCount(const QModelIndex &theParent) const
{
    return theParent.isValid() ? 0 : depth + list.ListCount();
}

QVariant DirListModel::data(const QModelIndex &theIndex, int theRole) const
{
    const int row = ListRow(theIndex.row());
    const Text path = list.List(row);
    if (theRole == Qt::ToolTipRole)
        return ToolTipText(
            ToQString(path) + QStringLiteral("\n") + tr("You can also drag the folder of your site to this window."));
    // Tells screen readers what the icon shows.
    if (theRole == Qt::AccessibleDescriptionRole)
        return row < 0 ? QStringLiteral("open") : QString();
    if (theRole == Qt::ForegroundRole)
        return Hints::IsOfProject(path) ? QVariant(Theme::Dim) : QVariant();
    if (theRole == NoteRole)
        return Hints::NoteOn(path);
    if (theRole == Qt::DecorationRole)
        return FolderPicture(std::min(row < 0 ? theIndex.row() : depth, 10), row < 0, Hints::IsOfProject(path));
    if (theRole != Qt::DisplayRole)
        return {};
    return ToQString(path.size() == 3 ? path : path.substr(path.find_last_of('\\') + 1));
}

void DirListModel::Reset()
{
    beginResetModel();
    depth = list.Depth();
    endResetModel();
}

// Keeps the colours of the icon in a selected row, and paints the note on a directory at the right end of its row.
class FolderDelegate : public QStyledItemDelegate
{
    using QStyledItemDelegate::QStyledItemDelegate;
    void initStyleOption(QStyleOptionViewItem *theOption, const QModelIndex &theIndex) const override
    {
        QStyledItemDelegate::initStyleOption(theOption, theIndex);
        theOption->icon.addPixmap(theIndex.data(Qt::DecorationRole).value<QPixmap>(), QIcon::Selected);
    }
    void paint(QPainter *thePainter, const QStyleOptionViewItem &theOption, const QModelIndex &theIndex) const override
    {
        QStyledItemDelegate::paint(thePainter, theOption, theIndex);
        const QString note = theIndex.data(DirListModel::NoteRole).toString();
        const QRect place = theOption.rect.adjusted(0, 0, -8, 0);
        const QFontMetrics words(theOption.font);
        const int taken = theIndex.data(Qt::DecorationRole).value<QPixmap>().deviceIndependentSize().toSize().width() +
                          words.horizontalAdvance(theIndex.data().toString()) + 40;
        if (note.isEmpty() || taken + words.horizontalAdvance(note) > place.width())
            return;
        thePainter->setFont(Theme::FontOf(TextStyle::Dim));
        thePainter->setPen(theOption.state & QStyle::State_Selected ? Theme::White : Theme::Fern);
        thePainter->drawText(place, Qt::AlignRight | Qt::AlignVCenter, note);
    }
};

DirListView::DirListView(DirList &theList, QWidget *theParent)
    : QListView(theParent), list(theList), rows(new DirListModel(theList, this))
{
    ApplyStyle(*this);
    setModel(rows);
    setItemDelegate(new FolderDelegate(this));
    FollowSelection(*this);
    connect(this, &QListView::doubleClicked, this, &DirListView::GoToRow);
}

void DirListView::Update()
{
    // The run uses a hidden list to walk through the directories; updating it would make screen readers announce each
    // one.
    if (isHidden())
        return;
    const QScopedValueRollback<bool> updating(isUpdating, true);
    if (path != list.NowPath || names != list.NowNames) {
        path = list.NowPath;
        names = list.NowNames;
        rows->Reset();
        // Scrolls so that the parent directories are visible above the subdirectories. In the program's own directory
        // the sample is looked for, which would lie below the visible rows.
        const int first = path == Paths::ProgramDir() ? -1 : -3;
        scrollTo(rows->index(std::max(0, rows->ViewRow(first))), QAbstractItemView::PositionAtTop);
    }
    if (const QModelIndex row = rows->index(rows->ViewRow(list.NowIndex)); row != currentIndex())
        setCurrentIndex(row);
}

void DirListView::GoToRow(const QModelIndex &theRow)
{
    if (const Text to = list.List(rows->ListRow(theRow.row())); !to.empty() && to != list.NowPath)
        Actions::Go(list, to);
}

void DirListView::currentChanged(const QModelIndex &theCurrent, const QModelIndex &thePrevious)
{
    QListView::currentChanged(theCurrent, thePrevious);
    if (!isUpdating && theCurrent.isValid() && rows->ListRow(theCurrent.row()) != list.NowIndex)
        Actions::Highlight(list, rows->ListRow(theCurrent.row()));
}

void DirListView::keyPressEvent(QKeyEvent *theEvent)
{
    // One directory up, as in other file dialogs.
    if (theEvent->key() == Qt::Key_Backspace && !list.List(-2).empty())
        Actions::Go(list, list.List(-2));
    else if (IsEnter(*theEvent))
        GoToRow(currentIndex());
    else
        QListView::keyPressEvent(theEvent);
}

void DirListView::resizeEvent(QResizeEvent *theEvent)
{
    QListView::resizeEvent(theEvent);
    setViewportMargins(SpareSpace(*this));
}

DriveComboBox::DriveComboBox(DriveList &theList, QWidget *theParent) : QComboBox(theParent), list(theList)
{
    setFont(Theme::FontOf(TextStyle::Body));
    setStyleSheet(Theme::ComboBoxStyle());
    // Qt uses the current text as the accessible name of a combo box, so its purpose goes into the description.
    setAccessibleDescription(ToQString(list.Design.AccessibleName));
    ReadDrives();
    connect(this, &QComboBox::activated, this, [this](int theRow) {
        Actions::Pick(list, FromQString(itemData(theRow).toString()));
        Update();
    });
}

// Paints the arrow, because a style sheet can show one only from an image file.
void DriveComboBox::paintEvent(QPaintEvent *theEvent)
{
    QComboBox::paintEvent(theEvent);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Theme::Dim, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF at(width() - 17, height() / 2.0 - 2);
    painter.drawPolyline(QPolygonF{at, at + QPointF(4, 4), at + QPointF(8, 0)});
}

void DriveComboBox::ReadDrives()
{
    clear();
    for (const Text &drive : Paths::Drives()) {
        const Text place = Files::ToHost(drive + "\\");
        const QString words = drive == "c:" ? QStringLiteral("this computer") : ToQString(place);
        addItem(ToQString(drive) + QStringLiteral("   ") +
                    (ToQString(place).startsWith(ToQString(drive), Qt::CaseInsensitive) ? QString() : words),
            ToQString(drive));
    }
}

void DriveComboBox::Update()
{
    const QString drive = ToQString(list.NowDrive);
    if (findData(drive) < 0)
        ReadDrives();
    setCurrentIndex(findData(drive));
}
