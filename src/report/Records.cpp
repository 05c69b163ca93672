#include "report/Records.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Trap.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "engine/temp.h"
#include <algorithm>

static const Text endOfPayload = "[]";
// The marker and the line end behind it.
static constexpr int recordEndLength = 4;

// A position behind a record, held in 32 bits.
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

// Deliberate: where the file is missing theBox keeps what it holds: a broken count without records shows the external
// ones.
static void LoadRecords(const Text &theFile, TextHolder &theBox)
{
    if (ifFileExists(theFile))
        LoadFileIntoBox(theFile, theBox);
    else  // The same words for all four files. Wanted.
        LogMessageLines({"",
            "The file containing the names of the files containing your site's external links couldn't "
            "be found for project #" +
                ProjectNumber + ".",
            theFile, "GenerateReport.frmProcess"});
}

// Deliberate: the ampersand stays as it is.
static Text EscapeTag(const Text &theTag)
{
    Text Result = ReplaceText(theTag, "<", "&lt;");
    Result = ReplaceText(Result, ">", "&gt;");
    Result = ReplaceText(Result, "\"", "&quot;");
    return ReplaceText(Result, "'", "&acute;");
}

Text TabulateLinks(Text LinkType)
{
    Text Result;
    Trap([&] {
        LoadRecords(InStoreDir(LinkType + "LinksFiles.sav"), frmLists::rtbReportTemp);
        LoadRecords(InStoreDir(LinkType + "LinksLinks.sav"), frmLists::rtbReportTemp2);
        // Copies: a second report, begun during a yield, fills the boxes anew.
        const Text files = frmLists::rtbReportTemp.Text, links = frmLists::rtbReportTemp2.Text;
        std::int32_t filesPos = 1, linksPos = 1;
        for (;;) {
            DoEvents();
            const Text page = GetLineFromText(filesPos, files, 0);
            if (page.empty())
                break;
            if (filesPos != 1)
                Result += Text("<TR><TD>&nbsp;</TD></TR>") + CRLF;
            Result += TableRow({page});  // as it is, without any escaping. Wanted.
            const std::int16_t linkCount = GetRepeatingLines(filesPos, files, page);
            for (int i = 1; i <= linkCount; ++i) {
                DoEvents();
                // Deliberate: with the line end of its own the tag's line is followed by an empty one.
                const Text tag = EscapeTag(GetLineFromText(linksPos, links, 1) + CRLF);
                Result += TableRow({"&nbsp;&nbsp;&nbsp;&nbsp;&nbsp;" + tag});
            }
        }
    });
    return Result;
}

std::int16_t isLinkMedia(const Text &theLink)
{
    std::int16_t Result = -1;
    Trap([&] {
        const Text file = GetFileFromLink(theLink, 0, 1);
        // Deliberate: Counted in the whole link, taken from the file part: most links with a query are no media links.
        const std::int64_t length = Len(theLink) - FindLastText(theLink, ".");
        const Text extension = RightPart(file, length);
        // Deliberate: exactly, while the tally of files ignores case: a row in capitals finds files but no link.
        const std::vector<Text> &rows = frmLists::lstMediaExtensions.Rows();
        if (std::find(rows.begin(), rows.end(), extension) != rows.end())
            Result = 3;
    });
    return Result;
}
