// What came of a run: for people and as JSON.
#pragma once
#include "disk/Losses.h"
#include <map>
#include <vector>

// A link of the report's tables.
struct LinkRecord {
    Text Page;  // path of the host
    Text Tag;
};

struct Summary {
    int Status = 0;
    Text Outcome = "report";  // how the run ended: "report", "failure" or "standstill"
    Text Reason;              // why it ended otherwise than with a report
    std::int64_t PagesFound = 0, PagesProcessed = 0, PagesAdded = 0, KeywordsAdded = 0;
    std::int64_t LinksInternal = 0, LinksExternal = 0, LinksBroken = 0, LinksMedia = 0, MediaFiles = 0;
    double Seconds = 0;
    std::int64_t BytesWritten = 0;
    Text NewSite, Report;  // paths of the host; empty when they aren't there
    std::vector<LinkRecord> Broken, External;
    std::map<Text, long> Boxes;
    std::vector<Losses::Loss> Lost;
    long LongNames = 0;  // new pages that could not be made because their names are too long

    // Takes the counts from the run's screen.
    void TakeCounts();
    // Takes the paths and the records of links from the project's directories. A report older than theStart, by the
    // clock of the file system, is that of an earlier run.
    void TakeFiles(std::int64_t theStart);
    // Pages that were written, treated or added, for each second.
    double PagesPerSecond() const;
    Text ForPeople() const;
    Text AsJson() const;
};

// The lines that tell of message boxes and of what could not be read or written, once each.
Text Complaints(const Summary &theSummary);
