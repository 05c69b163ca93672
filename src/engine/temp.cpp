#include "engine/temp.h"
#include "core/FileHandle.h"
#include "core/RandomBas.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "disk/Paths.h"
#include "engine/Route.h"
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

// Deliberate: page expansion counts broken links in the same label, which shows whatever was written last.
static void RaiseBrokenLinksTally()
{
    ++BrokenLinksTally;
    frmProcess::lblLinksBrokenCnt.Caption = std::to_string(BrokenLinksTally);
}

// The index file for a link that ends in a backslash; empty when its directory has none, or the error of the scan.
static Text IndexFileOfDirectory(const Text &theLink)
{
    const Text found = ScanForAnIndexFile(AddTrailingSlash(LocalPathOfLink(theLink)));
    if (LowerText(LeftPart(found, 5)) != "*err*")
        return LastElement(found);
    // Deliberate: a missing directory is counted only here; other scans return the error without counting it.
    if (NumberAtStart(RightPart(found, Len(found) - 5)) == 3)
        RaiseBrokenLinksTally();
    return found;
}

// The file that theLink ends in, or that a scan of its directory finds. theLink is in backslash form.
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
        // Deliberate: the scan only shows its messages; its result is not used and the link counts as the file.
        ScanForAnIndexFile(theLink + "\\");
        return theLink;
    }
    if (theLink == "." || theLink == "..") {
        if (wantFile <= 0)
            return "";
        // Deliberate: neither path can be scanned, so messages are shown and the error counts as the file.
        return ScanForAnIndexFile(theLink == "." ? "\\" : "0\\");
    }
    // Deliberate: links are in lower case, but DomainName keeps its capitals. A domain with a capital letter is never
    // found here, so the bare domain then counts as a file.
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
        // Deliberate: the link is cut at a "?" even when a "#" stands before it.
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
        Result = link;  // also the result after a failure in the lines below
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

// True when theWord is a keyword.
// Deliberate: only the keywords are lower-cased, so a word with a capital letter is never taken for one.
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

// Draws rows of theSource at random, with replacement, and adds each row that theRule accepts to theName, until the
// name contains enough words.
static void AddWords(Text &theName, const ListBox &theSource, const std::function<bool(const Text &)> &theRule)
{
    const int count = theSource.ListCount();
    const auto mayAdd = [&](const Text &theWord) {
        // Deliberate: the word is searched in the whole name, digits included: after "rates", "rate" is refused.
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
        // After this many refusals it is worth checking whether any row can still be added. If so, drawing continues.
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
        // Deliberate: when the name contains no dot, the whole name is the extension.
        const Text extension = RightPart(theFileName, n - FindLastText(theFileName, ".") + 1);
        FileNameNumber = PadNumberLeft(static_cast<std::int32_t>(GetRandomNumber(999999)), 6);
        Text name = FileNameNumber;
        KeywordsInFileName = 0;
        // Deliberate: the limit is the length of the file name, and the lowered value stays for all later names.
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
        // Deliberate: a link without "/" gets "/" as its separator, even when it contains backslashes.
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
        // Deliberate: the length of the file name is subtracted even when the link does not contain it. The count is
        // then usually negative, the result is empty, and the tag disappears from the page.
        const Text tail = RightPart(link, Len(link) - Len(dirPart) - fileLen + extra);
        const Text newTag = head + dirPart + newFile + tail + rest;
        // Deliberate: backslashes are replaced in the whole tag, not only in its link.
        Result = forward ? ReplaceText(newTag, "\\", "/") : newTag;
    });
    return Result;
}

// True when thePath, read from the left, climbs above its own start at any point.
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
        if (!SetLinkSubDir(theLink)) {
            MsgBox("cannot yet accept this case:  " + theLink + CRLF + "CreateNewlyKeywordedFile().temp");
            Result = 1;
            return;
        }
        const Text project = InProgramDir(AddTrailingSlash(ProjectNumber));
        const auto targetOf = [&](const Text &theName) {
            return ReplaceText(project + AddTrailingSlash(LinkSubDir) + theName, "\\\\", "\\");
        };
        Text name = newFile;
        Text target = targetOf(name);
        const Text source = ReplaceText(LocalSiteDir + LinkSubDir + theFile, "\\\\", "\\");
        // A link can contain ".." behind its domain. A file outside the site or the project, or one that is reached
        // through a directory outside, is treated as missing, even if isLinkBroken has found it.
        const bool isInside =
            !ClimbsOut(LinkSubDir) && Paths::IsInside(source, LocalSiteDir) && Paths::IsInside(target, project);
        // Deliberate: the tag already contains the first name, so after a collision it leads to another file.
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
        if (CopyFile(source, target, ExpectedRoute(target)) == 1) {
            MsgBox(Text("Error copying:") + CRLF + "from:  " + source + CRLF + "To:  " + target);
            Result = 1;
        }
    });
    return Result;
}
