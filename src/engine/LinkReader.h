// Goes through the links of the current page from front to back and keeps what successive links share: their tag, and
// the next characters that matter. So a page takes time in proportion to its size, even if all its links are in one
// tag or each of them contains the next.
#pragma once
#include "base/Text.h"

class LinkReader
{
public:
    LinkReader();
    // Goes on to the link whose "href" begins at thePos in RichTextBox2. Has no trap: it fails where GetTagAtPos does.
    void MoveTo(std::int64_t thePos);
    // The "<" and the ">" of the link's tag. The latter is 0 for a tag that is never closed.
    std::int64_t TagStart() const { return tagStart; }
    std::int64_t TagEnd() const { return isUnclosed ? 0 : tagEnd; }
    // True for a link that begins with a dot or a slash of either kind.
    bool IsDotted() const;
    // True when isLinkInternal is certain to give 0. Not for a dotted link.
    bool IsLeftAlone();
    // True when RebaseDottedLink is certain to say nothing, not to give "0", and to be followed by a True of
    // IsTrashWith. For a dotted link.
    bool IsTrashAnyway();
    // What isLinkTrash gives for the tag after SwapLinkInTag with newLink.
    bool IsTrashWith(const Text &newLink);

private:
    // Where a text occurs next in the page. The positions asked for must not decrease.
    struct Next {
        Text What;
        std::int64_t Found = 0;
        std::int64_t From(std::int64_t thePos);
    };
    // The whole page, closed up, and the place of the current tag in it. Closing up removes no "<" or ">" and nothing
    // is closed up across one, so each tag in it is the same as if it had been closed up by itself.
    struct ClosedPage {
        Text All;
        long Opens = 0, Closes = 0;  // how many "<" there are up to Start, and ">" up to End
        std::size_t Start = Text::npos, End = Text::npos;
        std::size_t Judged = 0, LastTrash = 0;  // as far as rows have been searched; behind the start of the last one
        void MoveTo(long theOpens, long theCloses);
        // True when a row of ListLinkTrash is between theStart, a place in the tag, and the end of the tag.
        bool HasTrash(std::size_t theStart, std::size_t theLongestRow);
    };
    void FindLink(std::int64_t thePos);
    void FindFirstLink();
    bool HasTrashBesideLink();

    std::int64_t tagStart = 0, tagEnd = 0;
    bool isUnclosed = false;
    long opens = 0, closes = 0;
    std::int64_t linkStart = 0, linkEnd = 0;  // linkEnd is the position behind the link
    Text domain;                              // in lower case
    Next open{"<"}, close{">"}, valueBlank{" "}, valueClose{">"}, dot{"."}, slash{"/"}, backslash{"\\"}, query{"?"},
        anchor{"#"}, site;
    std::size_t longestRow = 0;  // of ListLinkTrash
    ClosedPage once, twice;      // SwapLinkInTag closes up a tag for the second time
    // The link that SwapLinkInTag replaces, and where it begins in twice; npos when it isn't in the tag.
    Text firstLink;
    std::size_t firstLinkAt = Text::npos;
    long firstLinkOpens = 0, firstLinkCloses = 0;  // the tag in which it was looked for
    bool isTrashBefore = false;                    // between the "<" and the first link
};
