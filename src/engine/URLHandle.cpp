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

Text PageDirectory()
{
    return AddTrailingSlash(frmProcess::File1.Path);
}

// theText without as many first characters as theHead has; they are not compared. Fails when theText is shorter.
static Text DropLengthOf(const Text &theText, const Text &theHead)
{
    return RightPart(theText, Len(theText) - Len(theHead));
}

Text PageSubdirectory()
{
    return DropLengthOf(PageDirectory(), LocalSiteDir);
}

void ShowBothSlashes(const Text &theLink)
{
    // Deliberate: the message names GetFileFromLink, whichever procedure calls.
    ShowMessageLines({"Houston, we have a problem.", "The passed link contains both forward and back slashes", "",
        "The passed link:  " + theLink, "Called from GetFileFromLink().temp"});
}

Text GetTagAtPos(std::int64_t thePos)
{
    const Text &page = frmLists::RichTextBox2.Text;
    const std::int64_t start = FindLastText(page, "<", thePos, false);
    const std::int64_t finish = FindText(thePos, page, ">");
    return CloseUpEquals(MidPart(page, start, finish - start + 1));
}

namespace
{
// The character at a position of theText; 0 outside it.
char CharAt(const Text &theText, std::int64_t thePos)
{
    return thePos >= 1 && thePos <= Len(theText) ? theText[static_cast<std::size_t>(thePos - 1)] : '\0';
}

bool IsPast(const Text &theText, std::int64_t thePos)
{
    return thePos > Len(theText);
}

// The value of the "href" at thePos; theOffset leads to its first character. For each further character of an unquoted
// value checkEnd gets the count and whether the text has ended; once it has, checkEnd must throw.
template <class CheckEnd>
Text ReadValue(const Text &theText, std::int64_t thePos, std::int64_t theOffset, CheckEnd &&checkEnd)
{
    const char opening = CharAt(theText, thePos + theOffset);
    const std::int64_t start = thePos + theOffset + 1;
    if (!IsPast(theText, start - 1) && (opening == '"' || opening == '\''))
        return MidPart(theText, start, FindText(start, theText, Text(1, opening)) - start);
    // Deliberate: the test begins one character behind start, so even a ">" at start becomes part of the value.
    std::int64_t i = 1;
    while (CharAt(theText, start + i) != ' ' && CharAt(theText, start + i) != '>') {
        ++i;
        checkEnd(i, IsPast(theText, start + i));
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

static Text ParentOf(const Text &thePath)
{
    return AddTrailingSlash(StripFileFromEnd(thePath));
}

// How many times theLink has "..\" at its beginning.
static std::size_t LeadingClimbs(const Text &theLink)
{
    std::size_t Result = 0;
    while (theLink.compare(3 * Result, 3, "..\\") == 0)
        ++Result;
    return Result;
}

// The path of a link that begins with "..\" from theBase, or "0" when it climbs above the site's root.
static Text ClimbFrom(Text theBase, const Text &theLink)
{
    const std::int16_t wanted = CountInString(theLink, "..\\");
    std::int64_t levels = 0;
    for (Text above = ParentOf(theBase); above != "0\\"; above = ParentOf(above))
        ++levels;
    // Deliberate: every "..\" of the link is counted, but only the leading ones are climbed.
    if (levels < wanted)
        return "0";
    const std::size_t climbs = LeadingClimbs(theLink);
    for (std::size_t i = 0; i < climbs; ++i)
        theBase = ParentOf(theBase);
    return theBase + theLink.substr(3 * climbs);
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
        if (link == ".")
            // Deliberate: the domain is removed again, so the result begins with a slash.
            r = DropLengthOf(base, DomainName);
        else if (link == "..")
            // Deliberate: for a page in the root the parent is "0\", so the count is negative and the result empty.
            r = DropLengthOf(ParentOf(base), DomainName);
        else if (BeginsWith(link, "\\"))
            r = DomainName + link;
        else if (BeginsWith(link, ".\\"))
            // Deliberate: only the drive is removed, so the directories above the site's root stay in the link.
            r = DomainName + RightPart(PageDirectory(), Len(PageDirectory()) - 2) + RightPart(link, Len(link) - 2);
        else if (BeginsWith(link, "..\\"))
            r = ClimbFrom(base, link);
        else if (Contains(link, ".") && !isDomainExtensionInLink(link))
            // Deliberate: the link's own name is lost.
            r = PageSubdirectory();
        Result = forward ? ReplaceText(r, "\\", "/") : r;
    });
    return Result;
}

Text GetLinkFromTag(const Text &theTag)
{
    Text Result;
    Trap([&] {
        const Text tag = CloseUpEquals(theTag);
        // Deliberate: without an "href" the position is 0, so the reading begins at the fourth character.
        const std::int16_t position = Count16(FindText(1, LowerText(tag), "href"));
        std::int16_t off = 4;
        while (IsBetweenNameAndValue(tag, position + off))
            off = Count16(off + 1);
        // Deliberate: without a ">" the count overflows in the end and the result is empty.
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
        // Deliberate: an empty link is found at position 1, so the new link is put in front of the tag.
        const std::int64_t p = FindText(1, tag, old);
        Result = LeftPart(tag, p - 1) + newLink + RightPart(tag, Len(tag) - p - Len(old) + 1);
    });
    return Result;
}

bool isLinkTrash(const Text &theTag)
{
    static RowFinder finder(frmLists::ListLinkTrash);
    bool Result = false;
    Trap([&] { Result = finder.AnyRowIn(theTag); });
    return Result;
}

bool isDomainExtensionInLink(const Text &theLink)
{
    static RowFinder finder(frmLists::ListDomainExtensions);
    bool Result = false;
    Trap([&] { Result = finder.AnyRowIn(theLink); });
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
            // Deliberate: a link with the domain only behind the "?" or "#" is neither internal nor external.
            const bool isInFront = (query == 0 && anchor == 0) || domain < query || domain < anchor;
            Result = isInFront ? -1 : 0;
        } else if (Contains(link, "."))
            // Deliberate: another site's host counts as a file of this site when the list lacks its domain ending.
            Result = isDomainExtensionInLink(link) ? 1 : -1;
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
        // Deliberate: no other scheme is known, so an https link keeps its head.
        for (const char *head : {"http://", "http:\\\\", "www."})
            link = StripFromEnds(link, head, 1);
        Result = link;
    });
    return Result;
}

Text AllAfterSiteRootNet(const Text &theLink, Flag KEEPEXTRA)
{
    Text Result = theLink;  // also the result after a failure
    Trap([&] {
        const Text s = StripSiteHead(theLink, KEEPEXTRA);
        if (BeginsWith(s, "\\"))
            Result = RightPart(s, Len(s) - 1);
        else if (EqualsIgnoringCase(LeftPart(s, Len(DomainName)), DomainName))
            Result = DropLengthOf(s, DomainName);
        else if (s == ".")
            Result = PageSubdirectory();
        else if (s == "..")
            Result = DropLengthOf(ParentOf(PageDirectory()), LocalSiteDir);
        else if (BeginsWith(s, ".\\"))
            // Deliberate: the result is a full path, with a backslash behind the file name.
            Result = PageDirectory() + AddTrailingSlash(RightPart(s, Len(s) - 2));
        else if (BeginsWith(s, "..\\"))
            // Deliberate: each "..\" is dropped without climbing a level.
            Result = s.substr(3 * LeadingClimbs(s));
        else if (Contains(s, ".") && !isDomainExtensionInLink(s))
            // Deliberate: the directories in a plain link are lost, so its file is looked for beside the page.
            Result = PageSubdirectory();
        // Deliberate: any other link stays as it is, with its head.
    });
    return Result;
}

Text LocalPathOfLink(const Text &theLink)
{
    Text Result;
    Trap([&] {
        // The second call finds nothing left to strip.
        const Text base = StripFromEnds(StripFromEnds(LocalSiteDir, "\\", 0), "\\", 0);
        // Deliberate: no separator is added, so a remainder without one is joined to the directory's name.
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

bool SetLinkSubDir(const Text &theLink)
{
    LinkSubDir = AllAfterSiteRootNet(theLink, 1);
    if (EqualsIgnoringCase(LinkSubDir, "err"))
        return false;
    LinkSubDir = ReplaceText(LinkSubDir, "/", "\\");
    LinkSubDir = GetFileFromLink(LinkSubDir, 1, 0);
    LinkSubDir = StripFromEnds(LinkSubDir, "\\", 1);
    return true;
}

std::int16_t isLinkBroken(const Text &theLink)
{
    const Text fileName = GetFileFromLink(theLink, 0, 1);
    if (!SetLinkSubDir(theLink))
        return 0;
    const Text path = ReplaceText(LocalSiteDir + LinkSubDir + fileName, "\\\\", "\\");
    return ifFileExists(path) ? 0 : 2;
}
