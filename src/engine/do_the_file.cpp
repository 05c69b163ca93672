#include "engine/do_the_file.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/LinkReader.h"
#include "engine/PageText.h"
#include "engine/Tallies.h"
#include "engine/URLHandle.h"
#include "engine/frmProcess.h"
#include "engine/frmTheFile.h"
#include "engine/temp.h"
#include "report/Records.h"

namespace
{
// What one call remembers from link to link. The positions count from 1.
struct PageInHand {
    Text File;
    std::int64_t Pos = 1;               // where the next search for "href" begins; 0 ends the loop
    bool IsFirstLink = true;            // no tag has been rewritten yet
    std::int64_t LastRewrittenEnd = 1;  // the ">" that closed the last rewritten tag
    LinkReader Reader = {};             // at the current link
    std::int64_t TagEnd = 0;            // the ">" of the last tag that was classified, whatever its kind
    bool IsRebased = false;             // the current link is not as it stands in the page
    Text Link;
    // Deliberate: it is not cleared between links. After a link that climbs above the root, plain links count as broken
    // too, until a dotted link is rebased successfully.
    Text RebasedLink;
};

// The tag of the current link. It is made only for a link whose tag is written somewhere, because a tag can contain
// thousands of links.
Text CurrentTag(const PageInHand &thePage)
{
    const Text tag = GetTagAtPos(thePage.Pos);
    return thePage.IsRebased ? SwapLinkInTag(tag, thePage.RebasedLink, thePage.Link) : tag;
}

// Appends a record to a pair of record files: the page's path to the first, the tag to the second.
void WriteRecord(const Text &thePair, const Text &thePage, const Text &theTag)
{
    AppendLineToFile(thePair + "LinksFiles.sav", InStoreDir(""), PageDirectory() + thePage + "[]");
    AppendLineToFile(thePair + "LinksLinks.sav", InStoreDir(""), theTag + "[]");
}

void TreatBrokenLink(const PageInHand &thePage)
{
    AddToCount(frmProcess::lblLinksBrokenCnt);
    WriteRecord("Broken", thePage.File, CurrentTag(thePage));
}

void TreatExternalLink(const PageInHand &thePage)
{
    AddToCount(frmProcess::lblLinksExternalCnt);
    WriteRecord("External", CurrentFilePath, CurrentTag(thePage));
}

void TreatMediaLink()
{
    // Deliberate: every media link is counted in the first row, whatever its extension.
    auto &counts = frmLists::lstMediaLinksCnt;
    counts.SetList(0, NumberText(NumberAtStart(counts.List(0)) + 1));
    AddToCount(frmProcess::lblLinksMedia);
}

// Appends the text since the last rewritten tag, followed by the tag: with its old link to rtb1, with its new one to
// rtb2.
void AssembleUpTo(PageInHand &thePage, const Text &theOldTag, const Text &theNewTag)
{
    const Text &source = frmLists::RichTextBox1.Text;
    const std::int64_t tagStart = thePage.Reader.TagStart();
    // Deliberate: two internal links behind one "<" make the count negative. No trap catches that, so the run fails.
    const Text before = thePage.IsFirstLink
                            ? LeftPart(source, tagStart - 1)
                            : MidPart(source, thePage.LastRewrittenEnd + 1, tagStart - 1 - thePage.LastRewrittenEnd);
    thePage.IsFirstLink = false;
    OldPageChunk = before + theOldTag;
    NewPageChunk = before + theNewTag;
    AppendLineToFile(frmTheFile::rtb1, "", OldPageChunk);
    AppendLineToFile(frmTheFile::rtb2, "", NewPageChunk);
    thePage.LastRewrittenEnd = thePage.TagEnd;
}

void TreatInternalLink(PageInHand &thePage)
{
    const Text oldFileName = GetFileFromLink(thePage.Link, 0, 1);
    if (oldFileName.empty()) {
        ++PagesFailedCnt;
        return;
    }
    const Text newFileName = MakeKeywordedFileName(oldFileName);
    const Text tag = CurrentTag(thePage), newTag = InsertFilenameIntoLink(oldFileName, newFileName, tag);
    if (CreateNewlyKeywordedFile(thePage.Link, newFileName, oldFileName) == 1) {
        ++PagesFailedCnt;
        return;
    }
    if (!UsingQuillmark)
        AddToCount(frmProcess::lblKeywordsAdded, static_cast<double>(KeywordsInFileName) * 2);
    AddToCount(frmProcess::lblPagesAdded);
    AssembleUpTo(thePage, tag, newTag);
    DoEvents();
    ++LinksInternalCnt;
    frmProcess::lblLinksInternalCnt.Caption = std::to_string(LinksInternalCnt);
}

void TreatLink(PageInHand &thePage)
{
    thePage.Reader.MoveTo(thePage.Pos);
    const bool isDotted = thePage.Reader.IsDotted();
    thePage.IsRebased = false;
    if (!isDotted && thePage.RebasedLink != "0" && thePage.Reader.IsLeftAlone()) {
        thePage.TagEnd = thePage.Reader.TagEnd();
        return;
    }
    if (isDotted && thePage.Reader.IsTrashAnyway()) {
        thePage.RebasedLink.clear();
        thePage.TagEnd = thePage.Reader.TagEnd();
        return;
    }
    thePage.Link = GetLinkAtPos(thePage.Pos);
    if (isDotted) {
        thePage.RebasedLink = RebaseDottedLink(thePage.Link);
        thePage.IsRebased = thePage.RebasedLink != "0";
    }
    if (thePage.RebasedLink == "0") {
        TreatBrokenLink(thePage);
        return;
    }
    if (thePage.IsRebased)
        thePage.Link = thePage.RebasedLink;
    const Text linkBackslashed = ReplaceText(thePage.Link, "/", "\\");
    thePage.TagEnd = thePage.Reader.TagEnd();
    // A rebased link has changed its tag. For any other link the reader has found no trash in the tag.
    if (thePage.IsRebased && thePage.Reader.IsTrashWith(thePage.Link))
        return;
    // So no tag needs to be passed.
    const std::int16_t linkKind = isLinkInternal(linkBackslashed, "");
    if (linkKind == 1)
        TreatExternalLink(thePage);
    if (linkKind != -1)
        return;
    // Deliberate: this test gets the backslash form and the copy gets the link with its own slashes, so they may look
    // for the file in different places.
    if (isLinkBroken(linkBackslashed) == 2)
        TreatBrokenLink(thePage);
    else if (isLinkMedia(thePage.Link) == 3)
        TreatMediaLink();
    else
        TreatInternalLink(thePage);
}

// The page's directory below the site's root, with a final backslash; empty for the root itself.
Text RelativeDirectory()
{
    Text Result = StripFromEnds(StripFromEnds(PageSubdirectory(), "\\", 1), "/", 1);
    return Result.empty() ? Result : AddTrailingSlash(Result);
}

void FinishPage(const PageInHand &thePage)
{
    // Deliberate: the tail begins at the ">" of the last classified tag, but what is assembled so far ends with the
    // last rewritten tag. If they are the same tag, its ">" is doubled; if not, the text between them is lost; and if
    // no tag was rewritten, all text before the tail is lost.
    const Text &source = frmLists::RichTextBox1.Text;
    AppendLineToFile(frmTheFile::rtb2, "", RightPart(source, Len(source) - thePage.TagEnd + 1));
    const Text relativeDir = RelativeDirectory();
    const Text depthPrefix = StringMulti(GetDirLevel(frmProcess::File1.Path, 0), "../");
    frmTheFile::rtb2.Text = RelinkExpandedPage(frmTheFile::rtb2.Text, depthPrefix);
    const Text directory = InProgramDir(ProjectNumber + "\\" + relativeDir);
    if (!ifDirExists(directory))
        CreateDirectories(directory);
    PrintToFile(directory + thePage.File, frmTheFile::rtb2.Text);
}
}  // namespace

void do_the_file(const Text &theFile)
{
    DebugWhere = "top of do_the_file";
    const Text path = frmProcess::Dir1.Path.Get() + "\\" + theFile;
    if (ifDirExists(path))
        return;
    if (!ifFileExists(path)) {
        Trap([&] { MsgBox("File \"" + theFile + "\" does not exist - do_the_file.ParseHTML"); });
        return;
    }
    LoadFileIntoBox(path, frmLists::RichTextBox1);
    ++FilesProcessedCnt;
    frmProcess::lblFilesCnt.Caption = std::to_string(FilesProcessedCnt);
    CurrentFilePath = theFile;
    frmLists::RichTextBox2.Text = LowerText(frmLists::RichTextBox1.Text);
    frmTheFile::rtb1.Text = "";
    frmTheFile::rtb2.Text = "";
    OldPageChunk = "";
    NewPageChunk = "";

    PageInHand page{.File = theFile, .Link = {}, .RebasedLink = {}};
    for (;;) {
        DoEvents();
        if (CancelRequested)
            return;
        page.Pos = FindText(page.Pos, frmLists::RichTextBox2.Text, "href");
        LinkInHand = page.Pos;
        if (page.Pos == 0)
            break;
        TreatLink(page);
        ++page.Pos;
    }
    FinishPage(page);
}
