#include "engine/temp.h"
#include "core/FileHandle.h"
#include "core/RandomBas.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "engine/URLHandle.h"
#include "engine/frmProcess.h"
#include <algorithm>
#include <functional>
#include <unordered_set>

// What follows the last backslash, or the whole text when there is none.
static Text LastElement(const Text &thePath)
{
    return RightPart(thePath, Len(thePath) - FindLastText(thePath, "\\"));
}

// Deliberate: a second writer of the label that counts broken links: it then shows whichever wrote last.
static void RaiseBrokenLinksTally()
{
    ++BrokenLinksTally;
    frmProcess::lblLinksBrokenCnt.Caption = std::to_string(BrokenLinksTally);
}

// The index file of a link that ends in a backslash, empty when its directory has none, or the error that the scan
// gave.
static Text IndexFileOfDirectory(const Text &theLink)
{
    const Text found = ScanForAnIndexFile(AddTrailingSlash(LocalPathOfLink(theLink)));
    if (LowerText(LeftPart(found, 5)) != "*err*")
        return LastElement(found);
    // Deliberate: only here is a missing directory counted; the other scans let the error through.
    if (NumberAtStart(RightPart(found, Len(found) - 5)) == 3)
        RaiseBrokenLinksTally();
    return found;
}

// The file that theLink, in backslash form, ends in, or leads to by a scan.
static Text FileOfLink(const Text &theLink, Flag wantDir, Flag wantFile)
{
    if (EndsWith(theLink, "\\")) {
        if (wantDir == 1)
            return "";
        return wantFile < 1 ? theLink : IndexFileOfDirectory(theLink);
    }
    if (Contains(theLink, "\\")) {
        const Text last = LastElement(theLink);
        if (Contains(last, "."))
            return last;
        if (wantFile < 1)
            return "";
        const bool isPath = MidPart(theLink, 2, 1) == ":";
        const Text directory =
            isPath ? theLink : AddTrailingSlash(LocalSiteDir) + StripFromEnds(AllAfterSiteRootNet(theLink, 0), "\\", 1);
        return LastElement(ScanForAnIndexFile(AddTrailingSlash(directory)));
    }
    if (!Contains(theLink, ".")) {
        if (wantFile < 1)
            return "";
        ScanForAnIndexFile(theLink + "\\");  // for its messages alone; the file stays the link. Wanted.
        return theLink;
    }
    if (theLink == "." || theLink == "..") {
        if (wantFile <= 0)
            return "";
        // Deliberate: neither is a path that can be scanned: its messages show and the error becomes the file.
        return ScanForAnIndexFile(theLink == "." ? "\\" : "0\\");
    }
    // Links are lower-case and DomainName is not lowered: one with a capital letter is never found, and the bare domain
    // Deliberate: then counts as a file.
    if (!Contains(theLink, DomainName))
        return theLink;
    return wantFile < 1 ? "" : LastElement(ScanForAnIndexFile(AddTrailingSlash(LocalPathOfLink(theLink))));
}

Text GetFileFromLink(const Text &theLink, Flag wantDir, Flag wantFile)
{
    Text Result;
    Trap([&] {
        if (theLink.empty())
            return;
        Text link = theLink;
        // Deliberate: a "?" wins even when a "#" stands before it.
        std::int64_t cut = FindText(1, link, "?");
        if (cut == 0)
            cut = FindText(1, link, "#");
        if (cut > 0)
            link = LeftPart(link, cut - 1);
        Count16(Len(link));
        const bool forward = Contains(link, "/");
        if (forward) {
            if (Contains(link, "\\"))
                ShowBothSlashes(link);
            link = ReplaceText(link, "/", "\\");
        }
        Result = link;  // what a failure leaves behind from here on
        Text file = FileOfLink(link, wantDir, wantFile);
        if (forward)
            file = ReplaceText(file, "\\", "/");
        if (!file.empty() && wantDir > 0)
            Result = LeftPart(link, FindLastText(link, file) - 1);
        else if (wantFile > 0)
            Result = file;
    });
    return Result;
}

// True when a keyword, lower-cased, is just that word.
static bool IsKeyword(const Text &theWord)
{
    static std::unordered_set<Text> keywords;
    static std::uint64_t revision = ~std::uint64_t{0};
    if (revision != frmLists::lstKeywords.Revision()) {
        keywords.clear();
        for (const Text &row : frmLists::lstKeywords.Rows())
            keywords.insert(LowerText(row));
        revision = frmLists::lstKeywords.Revision();
    }
    return keywords.contains(theWord);
}

// Draws rows of theSource, with replacement, and adds each that theRule lets pass to theName, until there are enough.
static void AddWords(Text &theName, const ListBox &theSource, const std::function<bool(const Text &)> &theRule)
{
    const int count = theSource.ListCount();
    const auto mayAdd = [&](const Text &theWord) {
        // Deliberate: looked for in the whole name, digits included: after "rates" the word "rate" is refused.
        return FindText(1, theName, theWord, true) == 0 && theRule(theWord);
    };
    std::int64_t refused = 0;
    while (static_cast<double>(KeywordsInFileName) < KeywordsPerFilename) {
        const Text &word = theSource.List(static_cast<std::int64_t>(GetRandomNumber(count)) - 1);
        if (mayAdd(word)) {
            theName += "-" + word;
            ++KeywordsInFileName;
            refused = 0;
            continue;
        }
        if (++refused != count + 1)
            continue;
        // So many refusals make it worth asking whether the draw can ever succeed; while it can, it goes on.
        const auto &rows = theSource.Rows();
        if (std::none_of(rows.begin(), rows.end(), mayAdd))
            Standstill("MakeKeywordedFileName", "There are too few different keywords for the " +
                                                    NumberText(KeywordsPerFilename) +
                                                    " keywords wanted in each file name.");
    }
}

Text MakeKeywordedFileName(const Text &theFileName)
{
    Text Result;
    Trap([&] {
        const std::int64_t n = Len(theFileName);
        // Deliberate: without a point the whole name is the extension.
        const Text extension = RightPart(theFileName, n - FindLastText(theFileName, ".") + 1);
        FileNameNumber = PadNumberLeft(static_cast<std::int32_t>(GetRandomNumber(999999)), 6);
        Text name = FileNameNumber;
        KeywordsInFileName = 0;
        // Deliberate: held against the length of the name, and lowered for good: one short name serves all later ones.
        if (KeywordsPerFilename > static_cast<double>(n))
            KeywordsPerFilename = static_cast<double>(n);
        if (!UsingQuillmark)
            AddWords(name, frmLists::lstKeywords, [](const Text &) { return true; });
        else {
            LoadListFromFile("lst", "dictionary", frmLists::lstDictionary);
            AddWords(name, frmLists::lstDictionary, [](const Text &theWord) { return !IsKeyword(theWord); });
        }
        Result = name + extension;
    });
    return Result;
}

Text InsertFilenameIntoLink(const Text &theFile, const Text &newFile, const Text &theTag)
{
    Text Result;
    Trap([&] {
        const Text tag = CloseUpEquals(theTag);
        Text link = GetLinkFromTag(tag);
        const Text head = LeftPart(tag, FindText(1, tag, link) - 1);
        const Text rest = RightPart(tag, Len(tag) - Len(head) - Len(link));
        const std::int16_t fileLen = Count16(Len(theFile));
        const bool forward = Contains(link, "/");
        // Deliberate: the other kind than the link's own: "/" where it holds none.
        const Text separator = forward ? "\\" : "/";
        if (forward) {
            if (Contains(link, "\\"))
                ShowMessageLines(
                    {"Houston, we have a problem.", "The passed tag contains both forward and back slashes", "",
                        "The passed tag:  " + tag, "Called from GetFileFromLink().temp"});
            link = ReplaceText(link, "/", "\\");
        }
        std::int64_t extra = 0;
        Text dirPart;
        if (const std::int64_t k = FindText(1, link, theFile, true); k > 0)
            dirPart = LeftPart(link, k - 1);
        else if (const std::int64_t q = FindText(1, link, "?"); q > 0) {
            dirPart = LeftPart(link, q - 1);
            if (!EndsWith(dirPart, separator)) {
                dirPart += separator;
                extra = 1;
            }
        } else if (EndsWith(link, "\\"))
            dirPart = link;
        else if (EqualsIgnoringCase(LeftPart(link, Len(DomainName)), DomainName)) {
            dirPart = link + separator;
            extra = 1;
        } else
            ShowMessageLines({"The original filename was not found in the link.  This is likely the case of a "
                              "scanned-for index.htm type of file",
                "", "InsertFilenameIntoLink().temp"});
        // The file's length is taken off also where it doesn't stand in the link: the count goes negative, the result
        // Deliberate: is empty and the tag drops out of the page.
        const Text tail = RightPart(link, Len(link) - Len(dirPart) - fileLen + extra);
        const Text newTag = head + dirPart + newFile + tail + rest;
        // Deliberate: in the whole tag, its other text included.
        Result = forward ? ReplaceText(newTag, "\\", "/") : newTag;
    });
    return Result;
}

// Whether the elements of thePath, read from the left, ever climb above where they start.
static bool ClimbsOut(const Text &thePath)
{
    int depth = 0;
    for (std::size_t at = 0; at < thePath.size();) {
        const std::size_t end = std::min(thePath.find_first_of("\\/", at), thePath.size());
        const Text element = thePath.substr(at, end - at);
        depth += element == ".." ? -1 : element.empty() || element == "." ? 0 : 1;
        if (depth < 0)
            return true;
        at = end + 1;
    }
    return false;
}

std::int16_t CreateNewlyKeywordedFile(const Text &theLink, const Text &newFile, const Text &theFile)
{
    std::int16_t Result = 0;
    Trap([&] {
        LinkSubDir = AllAfterSiteRootNet(theLink, 1);
        if (EqualsIgnoringCase(LinkSubDir, "err")) {
            MsgBox("cannot yet accept this case:  " + theLink + CRLF + "CreateNewlyKeywordedFile().temp");
            Result = 1;
            return;
        }
        LinkSubDir = ReplaceText(LinkSubDir, "/", "\\");
        LinkSubDir = GetFileFromLink(LinkSubDir, 1, 0);
        LinkSubDir = StripFromEnds(LinkSubDir, "\\", 1);
        const Text project = InProgramDir(AddTrailingSlash(ProjectNumber));
        const auto targetOf = [&](const Text &theName) {
            return ReplaceText(project + AddTrailingSlash(LinkSubDir) + theName, "\\\\", "\\");
        };
        Text name = newFile;
        Text target = targetOf(name);
        const Text source = ReplaceText(LocalSiteDir + LinkSubDir + theFile, "\\\\", "\\");
        // A link may climb by ".." behind its domain: what lies outside the site or the project, or is reached by way
        // of there, isn't there; though isLinkBroken may have found it.
        const bool isInside =
            !ClimbsOut(LinkSubDir) && Paths::IsInside(source, LocalSiteDir) && Paths::IsInside(target, project);
        // Deliberate: the tag already holds the first name, so after a collision the link and the copy disagree.
        while (isInside && ifFileExists(target)) {
            name = NewNumberInFileName(name);
            if (name.empty())
                Standstill("CreateNewlyKeywordedFile", "No free file name could be made for a copy of " + source + ".");
            target = targetOf(name);
        }
        if (!isInside || !ifFileExists(source)) {
            RaiseBrokenLinksTally();
            Result = 1;
            return;
        }
        if (CopyFile(source, target) == 1) {
            MsgBox(Text("Error copying:") + CRLF + "from:  " + source + CRLF + "To:  " + target);
            Result = 1;
        }
    });
    return Result;
}
