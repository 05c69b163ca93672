#include "engine/LinkReader.h"
#include "core/AppVars.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/RowFinder.h"
#include "engine/URLHandle.h"
#include <algorithm>
#include <limits>

static constexpr std::int64_t nowhere = std::numeric_limits<std::int64_t>::max();

static const Text &Page()
{
    return frmLists::RichTextBox2.Text;
}

LinkReader::LinkReader() : domain(LowerText(DomainName)), site{domain}
{
    for (const Text &row : frmLists::ListLinkTrash.Rows())
        longestRow = std::max(longestRow, row.size());
}

std::int64_t LinkReader::Next::From(std::int64_t thePos)
{
    if (Found < thePos) {
        Found = FindText(thePos, Page(), What);
        if (Found == 0)
            Found = nowhere;
    }
    return Found;
}

void LinkReader::ClosedPage::MoveTo(long theOpens, long theCloses)
{
    for (; Opens < theOpens; ++Opens)
        Start = All.find('<', Start + 1);
    for (; Closes < theCloses; ++Closes)
        End = All.find('>', End + 1);
}

bool LinkReader::ClosedPage::HasTrash(std::size_t theStart, std::size_t theLongestRow)
{
    static RowFinder finder(frmLists::ListLinkTrash);
    if (Judged <= End) {
        const std::string_view text = std::string_view(All).substr(0, End + 1);
        // A row that was cut off by the end of the tag before may be complete now.
        std::size_t at = std::max(Start, Judged - std::min(Judged, theLongestRow));
        for (; (at = finder.FirstRowIn(text, at)) != Text::npos; ++at)
            LastTrash = at + 1;
        Judged = End + 1;
    }
    return LastTrash > theStart;
}

void LinkReader::MoveTo(std::int64_t thePos)
{
    for (; open.From(tagStart + 1) <= thePos; ++opens)
        tagStart = open.Found;
    for (; tagEnd < thePos && close.From(tagEnd + 1) != nowhere; ++closes)
        tagEnd = close.Found;
    isUnclosed = tagEnd < thePos;
    if (tagStart == 0 || isUnclosed)
        GetTagAtPos(thePos);  // fails, except for a tag that begins at the first character of the page: that is empty
    if (once.All.empty())
        once.All = CloseUpEquals(Page());
    once.MoveTo(opens, closes);
    FindLink(thePos);
}

// Finds the place of what GetLinkAtPos reads.
void LinkReader::FindLink(std::int64_t thePos)
{
    const Text &page = Page();
    const std::size_t value = std::min(page.find_first_not_of("= ", static_cast<std::size_t>(thePos + 3)), page.size());
    const char opening = page.c_str()[value];
    linkStart = static_cast<std::int64_t>(value) + 1;
    if (opening == '"' || opening == '\'') {
        ++linkStart;
        linkEnd = std::max(FindText(linkStart, page, Text(1, opening)), linkStart);
    } else {
        linkEnd = std::min(valueBlank.From(linkStart + 2), valueClose.From(linkStart + 2));
        if (linkEnd == nowhere)
            GetLinkAtPos(thePos);  // doesn't return
    }
}

bool LinkReader::IsDotted() const
{
    const char first = linkStart < linkEnd ? Page()[static_cast<std::size_t>(linkStart - 1)] : '\0';
    return first == '.' || first == '/' || first == '\\';
}

bool LinkReader::IsLeftAlone()
{
    if (isUnclosed ? isLinkTrash("") : once.HasTrash(once.Start, longestRow))
        return true;
    // isLinkInternal searches the link for the domain with all slashes turned.
    if (domain.empty() || domain.find_first_of("/\\") != Text::npos)
        return false;
    const std::int64_t domainPos = site.From(linkStart);
    if (domainPos > linkEnd - Len(domain))
        return dot.From(linkStart) >= linkEnd;
    const std::int64_t queryPos = query.From(linkStart), anchorPos = anchor.From(linkStart);
    const bool hasQuery = queryPos < linkEnd, hasAnchor = anchorPos < linkEnd;
    const bool isBeforeQuery = hasQuery && domainPos < queryPos, isBeforeAnchor = hasAnchor && domainPos < anchorPos;
    return (hasQuery || hasAnchor) && !isBeforeQuery && !isBeforeAnchor;
}

// Finds what GetLinkFromTag gives for the tag.
void LinkReader::FindFirstLink()
{
    if (firstLinkOpens != opens) {
        firstLink.clear();
        firstLinkAt = Text::npos;
        isTrashBefore = false;
    } else if (firstLinkCloses == closes) {
        return;
    }
    firstLinkOpens = opens;
    firstLinkCloses = closes;
    const Text &all = twice.All;
    const std::size_t tagSize = twice.End + 1 - twice.Start;
    // A link that has been read from the beginning of a tag stays the same however the tag goes on; an empty one may be
    // a link whose end was not there. The beginning must not end in the middle of what closing up changes.
    std::size_t size = all.find("href", twice.Start) - twice.Start;
    for (std::size_t more = 256; firstLink.empty() && size < tagSize; more *= 4) {
        size = std::min(size + more, tagSize);
        while (size < tagSize && (all[twice.Start + size - 1] == ' ' || all[twice.Start + size - 1] == '='))
            ++size;
        firstLink = GetLinkFromTag(all.substr(twice.Start, size));
    }
    if (firstLinkAt != Text::npos && firstLinkAt != twice.Start)
        return;
    firstLinkAt = std::string_view(all).substr(0, twice.End + 1).find(firstLink, twice.Start);
    if (firstLinkAt != Text::npos)
        isTrashBefore = isLinkTrash(all.substr(twice.Start, firstLinkAt - twice.Start));
}

bool LinkReader::HasTrashBesideLink()
{
    if (twice.All.empty())
        twice.All = CloseUpEquals(once.All);
    twice.MoveTo(opens, closes);
    FindFirstLink();
    return firstLinkAt != Text::npos && (isTrashBefore || twice.HasTrash(firstLinkAt + firstLink.size(), longestRow));
}

bool LinkReader::IsTrashAnyway()
{
    const bool isClimbing = Page().compare(static_cast<std::size_t>(linkStart - 1), 2, "..") == 0;
    const bool hasBothSlashes = slash.From(linkStart) < linkEnd && backslash.From(linkStart) < linkEnd;
    return !isUnclosed && !isClimbing && !hasBothSlashes && HasTrashBesideLink();
}

bool LinkReader::IsTrashWith(const Text &newLink)
{
    if (isUnclosed)
        return isLinkTrash(newLink);
    if (HasTrashBesideLink())
        return true;
    if (firstLinkAt == Text::npos)
        return isLinkTrash("");  // SwapLinkInTag fails
    const std::size_t before = std::min(firstLinkAt - twice.Start, longestRow), behind = firstLinkAt + firstLink.size();
    return isLinkTrash(twice.All.substr(firstLinkAt - before, before) + newLink +
                       twice.All.substr(behind, std::min(longestRow, twice.End + 1 - behind)));
}
