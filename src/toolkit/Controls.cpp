#include "toolkit/Controls.h"
#include "toolkit/Presentation.h"
#include "toolkit/Services.h"
#include <algorithm>

static const Text noText;

void Control::SetFocus()
{
    Touch();
    ThePresentation().Focus(*this);
}

void ListBox::RowsChanged()
{
    ++revision;
    Changed();
}

int ListBox::ListCount() const
{
    Touch();
    return static_cast<int>(NowRows.size());
}

const Text &ListBox::List(std::int64_t theIndex) const
{
    Touch();
    if (theIndex < 0 || theIndex >= static_cast<std::int64_t>(NowRows.size()))
        return noText;
    return NowRows[static_cast<std::size_t>(theIndex)];
}

void ListBox::SetList(std::int64_t theIndex, Text theText)
{
    Touch();
    const auto count = static_cast<std::int64_t>(NowRows.size());
    if (theIndex < 0 || theIndex > count)
        Fail("no such row", Name);
    if (theIndex == count)
        NowRows.push_back(std::move(theText));
    else
        NowRows[static_cast<std::size_t>(theIndex)] = std::move(theText);
    RowsChanged();
}

void ListBox::AddItem(Text theText)
{
    Touch();
    NowRows.push_back(std::move(theText));
    RowsChanged();
}

void ListBox::RemoveItem(std::int64_t theIndex)
{
    Touch();
    if (theIndex < 0 || theIndex >= static_cast<std::int64_t>(NowRows.size()))
        Fail("no such row", Name);
    NowRows.erase(NowRows.begin() + theIndex);
    if (NowIndex == theIndex)
        NowIndex = -1;
    else if (NowIndex > theIndex)
        --NowIndex;
    RowsChanged();
}

void ListBox::Clear()
{
    SetRows({});
}

void ListBox::SetRows(std::vector<Text> theRows)
{
    Touch();
    NowRows = std::move(theRows);
    NowIndex = -1;
    RowsChanged();
}

const std::vector<Text> &ListBox::Rows() const
{
    Touch();
    return NowRows;
}

const int &ListBox::GetIndex() const
{
    Touch();
    return NowIndex;
}

void ListBox::SetIndex(const int &theIndex)
{
    Touch();
    if (theIndex < -1 || theIndex >= static_cast<int>(NowRows.size()))
        Fail("no such row", Name);
    NowIndex = theIndex;
    Changed();
}

void ListBox::Reset()
{
    Control::Reset();
    NowRows.clear();
    NowIndex = -1;
    ++revision;
}

void Browser::Reset()
{
    Control::Reset();
    NowAddress.clear();
}

void Browser::Navigate(const Text &theAddress)
{
    Touch();
    ThePresentation().Navigate(*this, theAddress);
}

void Browser::GoBack()
{
    Touch();
    if (!ThePresentation().GoBack(*this))
        Fail("no page to go back to", Name);
}

void Browser::GoForward()
{
    Touch();
    if (!ThePresentation().GoForward(*this))
        Fail("no page to go forward to", Name);
}

void Browser::Refresh()
{
    Touch();
    ThePresentation().Refresh(*this);
}

void Browser::Stop()
{
    Touch();
    ThePresentation().Stop(*this);
}
