#include "report/Records.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "disk/Files.h"
#include "engine/temp.h"
#include <algorithm>

static const Text endOfPayload = "[]";
// The marker and the line end after it.
static constexpr int recordEndLength = 4;

// A position after a record, in 32 bits.
static std::int32_t Position(std::int64_t thePosition)
{
    if (thePosition > std::numeric_limits<std::int32_t>::max())
        Fail("32-bit count out of range", "Position");
    return static_cast<std::int32_t>(thePosition);
}

Text GetLineFromText(std::int32_t &thePos, const Text &theText, std::int16_t doIncrement)
{
    Text Result;
    Trap([&] {
        const std::int64_t found = FindText(thePos, theText, endOfPayload);
        if (found == 0)
            return;
        // Deliberate: a payload that itself holds the marker is cut there, and two of its characters are lost.
        const std::int32_t behind = Position(found + recordEndLength);
        Result = MidPart(theText, thePos, found - thePos);
        if (doIncrement == 1)
            thePos = behind;
    });
    return Result;
}

std::int16_t GetRepeatingLines(std::int32_t &posStart, const Text &theText, const Text &theLine)
{
    std::int16_t Result = 0;
    Trap([&] {
        std::int16_t count = 0;
        for (;;) {
            DoEvents();
            const std::int64_t found = FindText(posStart, theText, endOfPayload);
            if (found == 0 || MidPart(theText, posStart, found - posStart) != theLine)
                break;
            // Deliberate: past 32,767 the result is 0, but posStart has passed the records: their links get no rows.
            count = Count16(count + 1);
            posStart = Position(found + recordEndLength);
        }
        Result = count;
    });
    return Result;
}

Text TableRow(const std::vector<Text> &theCells)
{
    Text Result = Text("  <TR>") + CRLF;
    for (const Text &cell : theCells)
        Result += Text("    <TD>") + CRLF + "      " + cell + CRLF + "    </TD>" + CRLF;
    return Result + "  </TR>" + CRLF;
}

// Deliberate: if the file is missing, theBox keeps its text: a count of broken links without records shows the external
// links.
static void LoadRecords(const Text &theFile, std::shared_ptr<const Text> &theBox)
{
    if (ifFileExists(theFile))
        theBox = std::make_shared<const Text>(Files::Read(theFile));
    else  // Deliberate: the same words for all four files.
        LogMessageLines({"",
            "The file containing the names of the files containing your site's external links couldn't "
            "be found for project #" +
                ProjectNumber + ".",
            theFile, "GenerateReport.frmProcess"});
}

// Deliberate: ampersands are not escaped.
static Text EscapeTag(const Text &theTag)
{
    Text Result = ReplaceText(theTag, "<", "&lt;");
    Result = ReplaceText(Result, ">", "&gt;");
    Result = ReplaceText(Result, "\"", "&quot;");
    return ReplaceText(Result, "'", "&acute;");
}

TableRows TabulateLinks(Text LinkType)
{
    struct Page {
        Text Path;
        std::int16_t Links;
    };
    std::vector<Page> pages;
    std::shared_ptr<const Text> links;
    Trap([&] {
        LoadRecords(InStoreDir(LinkType + "LinksFiles.sav"), frmLists::rtbReportTemp);
        LoadRecords(InStoreDir(LinkType + "LinksLinks.sav"), frmLists::rtbReportTemp2);
        // Kept here, because a second report that starts during a yield fills the boxes again.
        const std::shared_ptr<const Text> files = frmLists::rtbReportTemp;
        links = frmLists::rtbReportTemp2;
        for (std::int32_t filesPos = 1;;) {
            DoEvents();
            Text page = GetLineFromText(filesPos, *files, 0);
            if (page.empty())
                break;
            const std::int16_t linkCount = GetRepeatingLines(filesPos, *files, page);
            for (int i = 1; i <= linkCount; ++i)
                DoEvents();
            pages.push_back({std::move(page), linkCount});
        }
    });
    return [links, pages = std::move(pages)](const auto &theSink) {
        std::int32_t linksPos = 1;
        for (const Page &page : pages) {
            if (&page != &pages.front())
                theSink(Text("<TR><TD>&nbsp;</TD></TR>") + CRLF);
            theSink(TableRow({page.Path}));  // Deliberate: not escaped.
            for (int i = 1; i <= page.Links; ++i) {
                // Deliberate: the tag gets a line end of its own, so an empty line follows it.
                const Text tag = EscapeTag(GetLineFromText(linksPos, *links, 1) + CRLF);
                theSink(TableRow({"&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;" + tag}));
            }
        }
    };
}

std::int16_t isLinkMedia(const Text &theLink)
{
    std::int16_t Result = -1;
    Trap([&] {
        const Text file = GetFileFromLink(theLink, 0, 1);
        // Deliberate: counted in the whole link but cut from the file part, so most links with a query are no media
        // links.
        const std::int64_t length = Len(theLink) - FindLastText(theLink, ".");
        const Text extension = RightPart(file, length);
        // Deliberate: case matters here but not in the tally of files: a row in capitals finds files but no links.
        const std::vector<Text> &rows = frmLists::lstMediaExtensions.Rows();
        if (std::find(rows.begin(), rows.end(), extension) != rows.end())
            Result = 3;
    });
    return Result;
}
