// What the program loads: a key file, a saved file, a list, the records of links, a template of the report, a page in
// the player's browser, a script. The first letter of the input says which, the rest is the file.
#include "Sandbox.h"
#include "core/FileHandle.h"
#include "core/SaveLoad.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "core/frmLists.h"
#include "core/frmSplash.h"
#include "player/PageReader.h"
#include "player/Script.h"
#include "report/GenerateReport.h"
#include "report/Records.h"
#include <sstream>

namespace
{
Sandbox &TheSandbox()
{
    static Sandbox sandbox;
    static const bool isFilled = [] {
        Sandbox::Put(sandbox.site / "x.htm", "x");
        return true;
    }();
    (void)isFilled;
    return sandbox;
}

std::vector<Text> RowsOf(const Text &theFile)
{
    std::vector<Text> Result;
    std::size_t from = 0;
    for (std::size_t end; Result.size() <= 30000 && (end = theFile.find('\r', from)) != Text::npos;) {
        Result.push_back(theFile.substr(from, end - from));
        from = std::min(end + 2, theFile.size());
    }
    return Result;
}

void LoadKeys(const Text &theFile)
{
    Files::Write(InStoreDir("0001.key"), theFile);
    frmLists::lstKeywords.Clear();  // two writes may have the same time
    RefreshMasterKeywordList();
    REQUIRE(frmLists::lstKeywords.Rows() == RowsOf(theFile));
}

void LoadList(const Text &theFile)
{
    Files::Write(InStoreDir("rows.lst"), theFile);
    frmLists::ListIndexes.Clear();
    REQUIRE(LoadListFromFile("lst", "0001_store\\rows", frmLists::ListIndexes) == frmLists::ListIndexes.ListCount());
    REQUIRE(frmLists::ListIndexes.Rows() == RowsOf(theFile));
}

void LoadSaved(const Text &theFile)
{
    Files::Write(InProgramDir("variables.sav"), theFile);
    frmSplash::Init_Vars();
    const Text gathered = GATHERFROMFILE(InProgramDir("variables.sav"));
    REQUIRE(gathered == (Contains(theFile, "[]") ? theFile.substr(0, theFile.find("[]")) : ""));
    SaveVariable("ShowWelcome", "-1", 0);
    REQUIRE(Contains(theFile, "|") || LoadVariable("SHOWWELCOME", 0) == "-1");
}

// The first half is the Files text, the rest the Links text.
void LoadRecords(const Text &theFile, std::size_t &more)
{
    const std::size_t half = theFile.find('\0');
    Files::Write(InStoreDir("BrokenLinksFiles.sav"), theFile.substr(0, half));
    Files::Write(InStoreDir("BrokenLinksLinks.sav"), half == Text::npos ? "" : theFile.substr(half + 1));
    TabulateLinks("Broken")([&](const Text &row) { more += row.size(); });
    Files::Write(InStoreDir("rows.sav"), theFile);
    std::int32_t pos = 1;
    while (!GetLineFromText(pos, theFile, 1).empty())
        REQUIRE(pos <= static_cast<std::int32_t>(theFile.size()) + 3);
}

void LoadTemplate(const Text &theFile)
{
    frmLists::rtbReport.Text = theFile;
    const Text marker = "<!--row-->", rows = "<TR><!--row--></TR>";
    WriteTheReport("report", frmLists::rtbReport, marker, [&](const auto &theSink) { theSink(rows); });
    REQUIRE(Files::Read(InStoreDir("report.html")) == ReplaceText(theFile, marker, rows) + CRLF);
}

void ReadPage(const Text &theFile)
{
    TitleOfPage(theFile);
    REQUIRE(TextOfPage(theFile).size() <= 2 * theFile.size() + 2);
    AddressFrom("c:\\pages\\page.htm", AddressOfLink(theFile, ""));
    AddressFrom("c:\\pages\\page.htm", theFile);
}

void ReadPlay(const Text &theFile)
{
    std::istringstream file(theFile);
    for (const Action &action : ReadScript(file)) {
        REQUIRE(!action.Verb.empty() && theFile.find(action.Rest) != Text::npos);
        FindElement(action.Target);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *theData, std::size_t theSize)
{
    if (theSize == 0)
        return 0;
    const Text file(theData + 1, theData + theSize);
    ProjectNumber = "0001";
    TheSandbox().Check(theSize, [&](std::size_t &more) {
        switch (theData[0]) {
        case 'k':
            LoadKeys(file);
            break;
        case 'l':
            LoadList(file);
            break;
        case 's':
            LoadSaved(file);
            break;
        case 'r':
            LoadRecords(file, more);
            break;
        case 't':
            LoadTemplate(file);
            break;
        case 'h':
            ReadPage(file);
            break;
        default:
            ReadPlay(file);
        }
    });
    return 0;
}
