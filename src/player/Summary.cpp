#include "player/Summary.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "disk/Files.h"
#include "engine/URLHandle.h"
#include "engine/frmProcess.h"
#include "player/Explain.h"
#include "player/Host.h"
#include "player/Json.h"
#include "player/Numbers.h"
#include <algorithm>

// The payloads of a file of records, each of which ends in "[]" and a line end.
static std::vector<Text> Payloads(const Text &theFile)
{
    static const Text end = Text("[]") + CRLF;
    std::vector<Text> Result;
    const Text text = ifFileExists(theFile) ? Files::Read(theFile) : "";
    for (std::size_t at = 0, found; (found = text.find(end, at)) != Text::npos; at = found + end.size())
        Result.push_back(text.substr(at, found - at));
    return Result;
}

static std::vector<LinkRecord> RecordsOf(const Text &theKind)
{
    const std::vector<Text> pages = Payloads(InStoreDir(theKind + "LinksFiles.sav")),
                            tags = Payloads(InStoreDir(theKind + "LinksLinks.sav"));
    std::vector<LinkRecord> Result;
    for (std::size_t i = 0; i < std::min(pages.size(), tags.size()); ++i)
        Result.push_back({Files::ToHost(pages[i]), tags[i]});
    return Result;
}

void Summary::TakeCounts()
{
    using namespace frmProcess;
    const auto count = [](const Label &theLabel) {
        return static_cast<std::int64_t>(NumberAtStart(theLabel.Now.Caption));
    };
    PagesProcessed = count(lblFilesCnt);
    PagesAdded = count(lblPagesAdded);
    KeywordsAdded = count(lblKeywordsAdded);
    LinksInternal = count(lblLinksInternalCnt);
    LinksExternal = count(lblLinksExternalCnt);
    LinksBroken = count(lblLinksBrokenCnt);
    LinksMedia = count(lblLinksMedia);
    MediaFiles = count(lblMediaFilesFound);
}

void Summary::TakeFiles(std::int64_t theStart)
{
    if (ProjectNumber.empty())
        return;
    if (const Text site = InProgramDir(ProjectNumber); Files::IsDirectory(site))
        NewSite = Files::ToHost(site);
    if (const Text report = InStoreDir("report.html"); Outcome == "report" && ifFileExists(report))
        if (const Text file = Files::ToHost(report); Host::ChangeTime(file) >= theStart)
            Report = file;
    Broken = RecordsOf("Broken");
    External = RecordsOf("External");
}

double Summary::PagesPerSecond() const
{
    return Seconds > 0 ? static_cast<double>(PagesProcessed + PagesAdded) / Seconds : 0;
}

Text Summary::ForPeople() const
{
    Text Result;
    const auto add = [&](const Text &theName, const Text &theValue) {
        Result += theName + Text(theName.size() < 16 ? 16 - theName.size() : 1, ' ') + theValue + '\n';
    };
    add("Project", ProjectNumber + ", " + ProjectName);
    add("Pages", Grouped(PagesProcessed) + " processed, " + Grouped(PagesAdded) + " added");
    add("Keywords", Grouped(KeywordsAdded) + " added");
    add("Links", Grouped(LinksInternal) + " internal, " + Grouped(LinksExternal) + " external, " +
                     Grouped(LinksBroken) + " broken, " + Grouped(LinksMedia) + " to media files");
    add("Media files", Grouped(MediaFiles));
    add("Time", Rounded(Seconds, 1) + " s, " + Grouped(static_cast<std::int64_t>(PagesPerSecond())) +
                    " pages a second, " + Bytes(BytesWritten) + " written");
    if (!NewSite.empty())
        add("New site", NewSite);
    if (!Report.empty())
        add("Report", Report);
    return Result;
}

Text Summary::AsJson() const
{
    using Json::Number;
    using Json::String;
    const auto links = [](const std::vector<LinkRecord> &theRecords) {
        std::vector<Text> rows;
        rows.reserve(theRecords.size());
        for (const LinkRecord &one : theRecords)
            rows.push_back(Json::Object(
                {{"page", String(one.Page)}, {"link", String(GetLinkFromTag(one.Tag))}, {"tag", String(one.Tag)}}));
        return Json::Array(rows);
    };
    std::vector<Text> boxes, lost;
    for (const auto &[text, count] : Boxes)
        boxes.push_back(Json::Object({{"text", String(text)}, {"count", Number(count)}}));
    for (const Losses::Loss &loss : Lost)
        lost.push_back(Json::Object({{"file", String(Files::ToHost(loss.File))}, {"reason", String(loss.Reason)},
            {"count", Number(loss.Times)}}));
    return Json::Object(
               {{"status", Number(Status)}, {"outcome", String(Outcome)}, {"reason", String(Reason)},
                   {"project", String(ProjectNumber)}, {"name", String(ProjectName)}, {"domain", String(DomainName)},
                   {"site", String(Files::ToHost(LocalSiteDir))}, {"new_site", String(NewSite)},
                   {"report", String(Report)}, {"seconds", Rounded(Seconds, 3)},
                   {"pages_per_second", Rounded(PagesPerSecond(), 1)}, {"bytes_written", Number(BytesWritten)},
                   {"pages_found", Number(PagesFound)}, {"pages_processed", Number(PagesProcessed)},
                   {"pages_added", Number(PagesAdded)}, {"keywords_added", Number(KeywordsAdded)},
                   {"media_files", Number(MediaFiles)}, {"links_internal", Number(LinksInternal)},
                   {"links_external", Number(LinksExternal)}, {"links_broken", Number(LinksBroken)},
                   {"links_media", Number(LinksMedia)}, {"broken_links", links(Broken)},
                   {"external_links", links(External)}, {"boxes", Json::Array(boxes)}, {"lost", Json::Array(lost)}},
               true) +
           '\n';
}

Text Complaints(const Summary &theSummary)
{
    Text Result;
    for (const auto &[text, count] : theSummary.Boxes) {
        const auto copy = ReadFailedCopy(text);
        Result += "message: " + OnOneLine(text) + (copy && !copy->Reason.empty() ? ": " + copy->Reason : "") +
                  (count > 1 ? " (" + Grouped(count) + " times)" : "") + '\n';
    }
    for (const Losses::Loss &loss : theSummary.Lost)
        Result += "lost: " + Files::ToHost(loss.File) + ": " + loss.Reason +
                  (loss.Times > 1 ? " (" + Grouped(loss.Times) + " times)" : "") + '\n';
    if (theSummary.LongNames > 0)
        Result += "note: the names of " + Counted(theSummary.LongNames, "new page") +
                  " were too long for this disk, so these pages are missing; fewer keywords in a name (--per-name) or "
                  "shorter ones help\n";
    return Result;
}
