#include "player/CheckReport.h"
#include "player/Host.h"
#include "player/Json.h"
#include "player/Numbers.h"
#include "toolkit/Gates.h"
#include <iostream>

Text CheckReport::ForPeople() const
{
    Text Result;
    const auto add = [&](const Text &theName, const Text &theValue) {
        Result += theName + Text(16 - theName.size(), ' ') + theValue + '\n';
    };
    if (!Rehearsed)
        return "The run would end before it has begun.\n";
    const auto found = static_cast<std::int64_t>(Found.All().size());
    add("Pages", Grouped(Run.PagesProcessed) + " would be processed, " + Grouped(Run.PagesAdded) + " added");
    add("Links", Grouped(Run.LinksInternal) + " internal, " + Grouped(Run.LinksExternal) + " external, " +
                     Grouped(Run.LinksBroken) + " broken, " + Grouped(Run.LinksMedia) + " to media files");
    add("New site", Rehearsed->RealProject() + (Options.Project.empty() ? ", a new project" : ""));
    add("Written", Counted(Rehearsed->FileCount(), "file") + ", " + Bytes(Run.BytesWritten) + "; " + Bytes(BytesFree) +
                       " are free");
    if (const std::int64_t old = Rehearsed->ReplacedCount() + Rehearsed->KeptCount(); old > 0)
        add("Earlier runs",
            Counted(old, "file") + " there already, " + Grouped(Rehearsed->ReplacedCount()) + " of them written anew");
    add("Found", Counted(Found.Errors(), "error") + ", " + Counted(found - Found.Errors(), "warning"));
    return Result;
}

Text CheckReport::AsJson(int theStatus) const
{
    using Json::Number;
    const std::int64_t files = Rehearsed ? Rehearsed->FileCount() : 0;
    const std::int64_t replaced = Rehearsed ? Rehearsed->ReplacedCount() : 0;
    const std::int64_t kept = Rehearsed ? Rehearsed->KeptCount() : 0;
    using Json::String;
    std::vector<Text> rows;
    for (const Finding &one : Found.All())
        rows.push_back(Json::Object({{"severity", String(one.IsError ? "error" : "warning")},
            {"file", String(one.File)}, {"line", Number(one.Line)}, {"text", String(one.What)}}));
    return Json::Object(
               {{"status", Number(theStatus)}, {"project", String(Options.Number)}, {"site", String(Options.Site)},
                   {"pages_found", Number(Run.PagesFound)}, {"pages_processed", Number(Run.PagesProcessed)},
                   {"pages_added", Number(Run.PagesAdded)}, {"keywords_added", Number(Run.KeywordsAdded)},
                   {"media_files", Number(Run.MediaFiles)}, {"links_internal", Number(Run.LinksInternal)},
                   {"links_external", Number(Run.LinksExternal)}, {"links_broken", Number(Run.LinksBroken)},
                   {"links_media", Number(Run.LinksMedia)}, {"files", Number(files)},
                   {"files_replaced", Number(replaced)}, {"files_kept", Number(kept)},
                   {"bytes", Number(Run.BytesWritten)}, {"bytes_free", Number(BytesFree)},
                   {"findings", Json::Array(rows)}},
               true) +
           '\n';
}

int CheckReport::Tell() const
{
    const int Result = Found.Errors() > 0 ? 1 : 0;
    for (const Finding &one : Found.All())
        if (one.IsError || !Options.IsQuiet)
            std::cout << one.AsLine() << '\n';
    if (!Options.IsQuiet)
        std::cout << ForPeople();
    std::cout.flush();
    return SaveResult(Options, AsJson(Result), Result);
}
