#include "engine/URLHandle.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/RowFinder.h"
#include "engine/frmProcess.h"
#include "engine/temp.h"

Text GetTagAtPos(std::int64_t thePos)
{
    const Text &page = frmLists::RichTextBox2.Text;
    const std::int64_t start = FindLastText(page, "<", thePos, false);
    const std::int64_t finish = FindText(thePos, page, ">");
    return CloseUpEquals(MidPart(page, start, finish - start + 1));
}

namespace
{
// A position of theText, or 0 behind its end.
char CharAt(const Text &theText, std::int64_t thePos)
{
    return thePos >= 1 && thePos <= Len(theText) ? theText[static_cast<std::size_t>(thePos - 1)] : '\0';
}

bool IsPast(const Text &theText, std::int64_t thePos)
{
    return thePos > Len(theText);
}

// The value behind the "href" at thePos. WhenEndless is asked with the count of each character of an unquoted value and
// must not come back for ever.
template <class WhenEndless>
Text ReadValue(const Text &theText, std::int64_t thePos, std::int64_t theOffset, WhenEndless &&whenEndless)
{
    const char opening = CharAt(theText, thePos + theOffset);
    const std::int64_t start = thePos + theOffset + 1;
    if (!IsPast(theText, start - 1) && (opening == '"' || opening == '\''))
        return MidPart(theText, start, FindText(start, theText, Text(1, opening)) - start);
    // Deliberate: begins one behind start: the character at start belongs to the value untested, even a ">".
    std::int64_t i = 1;
    while (CharAt(theText, start + i) != ' ' && CharAt(theText, start + i) != '>') {
        ++i;
        whenEndless(i, IsPast(theText, start + i));
    }
    return MidPart(theText, start - 1, i + 1);
}

bool IsBetweenNameAndValue(const Text &theText, std::int64_t thePos)
{
    const char c = CharAt(theText, thePos);
    return !IsPast(theText, thePos) && (c == '=' || c == ' ');
}
}  // namespace

Text GetLinkAtPos(std::int64_t thePos)
{
    Text Result;
    Trap([&] {
        const Text &page = frmLists::RichTextBox2.Text;
        std::int64_t off = 4;
        while (IsBetweenNameAndValue(page, thePos + off))
            ++off;
        Result = ReadValue(page, thePos, off, [](std::int64_t, bool isPastEnd) {
            if (isPastEnd)
                Standstill("GetLinkAtPos",
                    "A link without quotes runs to the end of the page " + frmProcess::lblCurrentFile.Caption + ".");
        });
    });
    return Result;
}

Text GetLinkFromTag(const Text &theTag)
{
    Text Result;
    Trap([&] {
        const Text tag = CloseUpEquals(theTag);
        // Deliberate: without "href" the position is 0, and the reading begins at the fourth character.
        const std::int16_t position = Count16(FindText(1, LowerText(tag), "href"));
        std::int16_t off = 4;
        while (IsBetweenNameAndValue(tag, position + off))
            off = Count16(off + 1);
        // Deliberate: without a ">" the count overflows in the end, and the value is empty.
        Result = ReadValue(tag, position, off, [](std::int64_t i, bool) { Count16(i); });
    });
    return Result;
}

Text SwapLinkInTag(const Text &theTag, const Text &newLink, const Text &)
{
    Text Result;
    Trap([&] {
        const Text tag = CloseUpEquals(theTag);
        const Text old = GetLinkFromTag(tag);
        // Deliberate: an empty link is found at position 1, so the new one lands in front of the tag.
        const std::int64_t p = FindText(1, tag, old);
        Result = LeftPart(tag, p - 1) + newLink + RightPart(tag, Len(tag) - p - Len(old) + 1);
    });
    return Result;
}

Text StripSiteHead(const Text &theLink, Flag KEEPEXTRA)
{
    Text Result;
    Trap([&] {
        Text link = theLink;
        if (KEEPEXTRA != 1)
            if (const std::int64_t query = FindText(1, link, "?"); query > 0)
                link = LeftPart(link, query - 1);
        // Deliberate: no other scheme is known: a secure link keeps its head.
        for (const char *head : {"http://", "http:\\\\", "www."})
            link = StripFromEnds(link, head, 1);
        Result = link;
    });
    return Result;
}

bool isDomainExtensionInLink(const Text &theLink)
{
    static RowFinder finder(frmLists::ListDomainExtensions);
    bool Result = false;
    Trap([&] { Result = finder.FindsOneIn(theLink); });
    return Result;
}

bool isLinkTrash(const Text &theTag)
{
    static RowFinder finder(frmLists::ListLinkTrash);
    bool Result = false;
    Trap([&] { Result = finder.FindsOneIn(theTag); });
    return Result;
}

Text PageDirectory()
{
    return AddTrailingSlash(frmProcess::File1.Path);
}

// theText without its first characters, as many as theHead is long, whatever they are; a failure when there are fewer.
static Text WithoutAsMany(const Text &theText, const Text &theHead)
{
    return RightPart(theText, Len(theText) - Len(theHead));
}

Text PageSubdirectory()
{
    return WithoutAsMany(PageDirectory(), LocalSiteDir);
}

void ShowBothSlashes(const Text &theLink)
{
    // Deliberate: the words name GetFileFromLink, whoever calls.
    ShowMessageLines({"Houston, we have a problem.", "The passed link contains both forward and back slashes", "",
        "The passed link:  " + theLink, "Called from GetFileFromLink().temp"});
}

static Text ParentOf(const Text &thePath)
{
    return AddTrailingSlash(StripFileFromEnd(thePath));
}

// The path of a link that begins with "..\" from theBase, or "0" when it climbs above the site's root.
static Text ClimbFrom(Text theBase, Text theLink)
{
    const std::int16_t wanted = CountInString(theLink, "..\\");
    std::int64_t levels = 0;
    for (Text above = ParentOf(theBase); above != "0\\"; above = ParentOf(above))
        ++levels;
    // Deliberate: all "..\" of the link count, wherever they stand, but only the leading ones are climbed.
    if (levels < wanted)
        return "0";
    while (BeginsWith(theLink, "..\\")) {
        theBase = ParentOf(theBase);
        theLink = RightPart(theLink, Len(theLink) - 3);
    }
    return theBase + theLink;
}

Text RebaseDottedLink(const Text &theLink)
{
    Text Result;
    Trap([&] {
        Text link = theLink;
        const bool hasSlash = Contains(link, "/"), hasBackslash = Contains(link, "\\");
        const bool forward = hasSlash || !hasBackslash;
        if (hasSlash && hasBackslash)
            ShowBothSlashes(link);
        if (forward)
            link = ReplaceText(link, "/", "\\");
        const Text base = AddTrailingSlash(DomainName) + PageSubdirectory();
        Text r;
        if (link == ".")  // rooted at nothing: the domain is cut away again. Wanted.
            r = WithoutAsMany(base, DomainName);
        else if (link == "..")
            // Deliberate: in the site's root the parent is "0\": the count goes negative and the result is empty.
            r = WithoutAsMany(ParentOf(base), DomainName);
        else if (BeginsWith(link, "\\"))
            r = DomainName + link;
        else if (BeginsWith(link, ".\\"))
            // Deliberate: only the drive is taken away, so the site's own directories end up in the link.
            r = DomainName + RightPart(PageDirectory(), Len(PageDirectory()) - 2) + RightPart(link, Len(link) - 2);
        else if (BeginsWith(link, "..\\"))
            r = ClimbFrom(base, link);
        else if (Contains(link, ".") && !isDomainExtensionInLink(link))
            r = PageSubdirectory();  // without the link's own name. Wanted.
        Result = forward ? ReplaceText(r, "\\", "/") : r;
    });
    return Result;
}

Text AllAfterSiteRootNet(const Text &theLink, Flag KEEPEXTRA)
{
    Text Result = theLink;  // what a failure leaves behind
    Trap([&] {
        Text s = StripSiteHead(theLink, KEEPEXTRA);
        if (BeginsWith(s, "\\"))
            Result = RightPart(s, Len(s) - 1);
        else if (EqualsIgnoringCase(LeftPart(s, Len(DomainName)), DomainName))
            Result = WithoutAsMany(s, DomainName);
        else if (s == ".")
            Result = PageSubdirectory();
        else if (s == "..")
            Result = WithoutAsMany(ParentOf(PageDirectory()), LocalSiteDir);
        else if (BeginsWith(s, ".\\"))
            // Deliberate: a full path, with a backslash behind the file's name.
            Result = PageDirectory() + AddTrailingSlash(RightPart(s, Len(s) - 2));
        else if (BeginsWith(s, "..\\")) {
            // Deliberate: dropped, not climbed.
            while (BeginsWith(s, "..\\"))
                s = RightPart(s, Len(s) - 3);
            Result = s;
        } else if (Contains(s, ".") && !isDomainExtensionInLink(s))
            // Deliberate: a plain link's own directories are lost: it is looked for beside the page.
            Result = PageSubdirectory();
        // Deliberate: in all other cases the link stays as it came, with its head.
    });
    return Result;
}

Text LocalPathOfLink(const Text &theLink)
{
    Text Result;
    Trap([&] {
        // The second strip finds nothing any more.
        const Text base = StripFromEnds(StripFromEnds(LocalSiteDir, "\\", 0), "\\", 0);
        // Deliberate: no separator between them: a remainder without one runs into the directory's name.
        Result = base + AllAfterSiteRootNet(theLink, 0);
    });
    return Result;
}

Text ScanForAnIndexFile(const Text &thePath)
{
    Text Result;
    Trap([&] {
        DebugWhere = "top of ScanForAnIndexFile";
        if (!ifDirExists(thePath)) {
            Result = "*err*3";
            return;
        }
        for (const Text &row : frmLists::ListIndexes.Rows())
            if (ifFileExists(thePath + row)) {
                Result = AddTrailingSlash(thePath) + row;
                return;
            }
    });
    return Result;
}

std::int16_t isLinkInternal(const Text &theLink, const Text &theTag)
{
    std::int16_t Result = 0;
    Trap([&] {
        if (isLinkTrash(theTag))
            return;
        Text link = LowerText(theLink);
        if (Contains(link, "/")) {
            if (Contains(link, "\\"))
                ShowBothSlashes(link);
            link = ReplaceText(link, "/", "\\");
        }
        if (BeginsWith(link, "\\") || BeginsWith(link, ".")) {
            Result = -1;
            return;
        }
        const std::int64_t domain = FindText(1, link, LowerText(DomainName));
        if (domain > 0) {
            const std::int64_t query = FindText(1, link, "?"), anchor = FindText(1, link, "#");
            // Deliberate: a domain that stands only behind the query or the anchor makes the link neither kind.
            const bool isInFront = (query == 0 && anchor == 0) || domain < query || domain < anchor;
            Result = isInFront ? -1 : 0;
        } else if (Contains(link, "."))
            // Deliberate: a host whose ending the list lacks counts as a file of the site.
            Result = isDomainExtensionInLink(link) ? 1 : -1;
    });
    return Result;
}

// Has no trap: a failure in its own statements is its caller's.
std::int16_t isLinkBroken(const Text &theLink)
{
    const Text fileName = GetFileFromLink(theLink, 0, 1);
    LinkSubDir = AllAfterSiteRootNet(theLink, 1);
    if (EqualsIgnoringCase(LinkSubDir, "err"))
        return 0;
    LinkSubDir = ReplaceText(LinkSubDir, "/", "\\");
    LinkSubDir = GetFileFromLink(LinkSubDir, 1, 0);
    LinkSubDir = StripFromEnds(LinkSubDir, "\\", 1);
    const Text path = ReplaceText(LocalSiteDir + LinkSubDir + fileName, "\\\\", "\\");
    return ifFileExists(path) ? 0 : 2;
}
