#include "engine/do_the_file.h"
#include "core/DirHandle.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/PageText.h"
#include "engine/URLHandle.h"
#include "engine/frmProcess.h"
#include "engine/frmTheFile.h"
#include "engine/temp.h"
#include "report/Records.h"

using namespace frmProcess;

namespace
{
// What one call keeps from link to link.
struct PageInHand {
    Text File;
    std::int64_t Pos = 1;               // where the next search for "href" begins; 0 ends the loop
    bool IsFirstLink = true;            // no tag has been rewritten yet
    std::int64_t LastRewrittenEnd = 1;  // the ">" that closed the last rewritten tag
    std::int64_t TagStart = 0;          // the "<" of the tag in hand
    std::int64_t TagEnd = 0;            // the ">" of the last tag of any kind that was classified
    Text Tag, Link;
    // Never cleared between links: one link above the root makes the plain links after it broken too, until a dotted
    // Deliberate: one is rebased well.
    Text RebasedLink;
};

// Appends a record to a pair of record files: the page's path first, the tag second.
void WriteRecord(const Text &thePair, const Text &thePage, const Text &theTag)
{
    AppendLineToFile(thePair + "LinksFiles.sav", InStoreDir(""), PageDirectory() + thePage + "[]");
    AppendLineToFile(thePair + "LinksLinks.sav", InStoreDir(""), theTag + "[]");
}

void TreatBrokenLink(const PageInHand &thePage)
{
    AddToCount(lblLinksBrokenCnt);
    WriteRecord("Broken", thePage.File, thePage.Tag);
}

void TreatExternalLink(const PageInHand &thePage)
{
    AddToCount(lblLinksExternalCnt);
    WriteRecord("External", CurrentFilePath, thePage.Tag);
}

void TreatMediaLink()
{
    // Deliberate: always the first row, whatever the extension: nothing says which row it was.
    auto &counts = frmLists::lstMediaLinksCnt;
    counts.SetList(0, NumberText(NumberAtStart(counts.List(0)) + 1));
    AddToCount(lblLinksMedia);
}

// Appends the text since the last rewritten tag and the tag itself, once with the old link and once with the new.
void AssembleUpTo(PageInHand &thePage, const Text &theNewTag)
{
    const Text &source = frmLists::RichTextBox1.Text;
    // Deliberate: two good links that share one "<" make the count negative: the run fails, since nothing traps it
    // here.
    const Text before = thePage.IsFirstLink ? LeftPart(source, thePage.TagStart - 1)
                                            : MidPart(source, thePage.LastRewrittenEnd + 1,
                                                  thePage.TagStart - 1 - thePage.LastRewrittenEnd);
    thePage.IsFirstLink = false;
    OldPageChunk = before + thePage.Tag;
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
    const Text newTag = InsertFilenameIntoLink(oldFileName, newFileName, thePage.Tag);
    if (CreateNewlyKeywordedFile(thePage.Link, newFileName, oldFileName) == 1) {
        ++PagesFailedCnt;
        return;
    }
    if (!UsingQuillmark)
        AddToCount(lblKeywordsAdded, static_cast<double>(KeywordsInFileName) * 2);
    AddToCount(lblPagesAdded);
    AssembleUpTo(thePage, newTag);
    DoEvents();
    ++LinksInternalCnt;
    lblLinksInternalCnt.Caption = std::to_string(LinksInternalCnt);
}

void TreatLink(PageInHand &thePage)
{
    thePage.Tag = GetTagAtPos(thePage.Pos);
    thePage.Link = GetLinkAtPos(thePage.Pos);
    Text linkBackslashed = ReplaceText(thePage.Link, "/", "\\");
    if (BeginsWith(linkBackslashed, "\\") || BeginsWith(thePage.Link, ".")) {
        thePage.RebasedLink = RebaseDottedLink(thePage.Link);
        if (thePage.RebasedLink != "0") {
            thePage.Tag = SwapLinkInTag(thePage.Tag, thePage.RebasedLink, thePage.Link);
            thePage.Link = thePage.RebasedLink;
            linkBackslashed = ReplaceText(thePage.Link, "/", "\\");
        }
    }
    if (thePage.RebasedLink == "0") {
        TreatBrokenLink(thePage);
        return;
    }
    thePage.TagStart = FindLastText(frmLists::RichTextBox2.Text, "<", thePage.Pos, false);
    thePage.TagEnd = FindText(thePage.Pos, frmLists::RichTextBox2.Text, ">");
    const std::int16_t linkKind = isLinkInternal(linkBackslashed, thePage.Tag);
    if (linkKind == 1)
        TreatExternalLink(thePage);
    if (linkKind != -1)
        return;
    // Deliberate: the test gets the backslash form, the copy below the link's own slashes: they may look in two places.
    if (isLinkBroken(linkBackslashed) == 2)
        TreatBrokenLink(thePage);
    else if (isLinkMedia(thePage.Link) == 3)
        TreatMediaLink();
    else
        TreatInternalLink(thePage);
}

// The page's directory below the site's root, with a final backslash; empty in the root.
Text RelativeDirectory()
{
    Text Result = StripFromEnds(StripFromEnds(PageSubdirectory(), "\\", 1), "/", 1);
    return Result.empty() ? Result : AddTrailingSlash(Result);
}

void FinishPage(const PageInHand &thePage)
{
    // Begins at the ">" of the last tag of any kind, while the pieces end with the last rewritten one: the ">" stands
    // Deliberate: twice, or all that lies between the two tags is gone; with no rewritten tag, all that lies before.
    const Text &source = frmLists::RichTextBox1.Text;
    AppendLineToFile(frmTheFile::rtb2, "", RightPart(source, Len(source) - thePage.TagEnd + 1));
    const Text relativeDir = RelativeDirectory();
    const Text depthPrefix = StringMulti(GetDirLevel(File1.Path, 0), "../");
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
    const Text path = Dir1.Path.Get() + "\\" + theFile;
    if (ifDirExists(path))
        return;
    if (!ifFileExists(path)) {
        Trap([&] { MsgBox("File \"" + theFile + "\" does not exist - do_the_file.ParseHTML"); });
        return;
    }
    LoadFileIntoBox(path, frmLists::RichTextBox1);
    ++FilesProcessedCnt;
    lblFilesCnt.Caption = std::to_string(FilesProcessedCnt);
    CurrentFilePath = theFile;
    frmLists::RichTextBox2.Text = LowerText(frmLists::RichTextBox1.Text);
    frmTheFile::rtb1.Text = "";
    frmTheFile::rtb2.Text = "";
    OldPageChunk = "";
    NewPageChunk = "";

    PageInHand page{.File = theFile, .Tag = {}, .Link = {}, .RebasedLink = {}};
    for (;;) {
        DoEvents();
        if (CancelRequested)
            return;
        page.Pos = FindText(page.Pos, frmLists::RichTextBox2.Text, "href");
        if (page.Pos == 0)
            break;
        TreatLink(page);
        ++page.Pos;
    }
    FinishPage(page);
}
