// What the command "check" has found, in the order in which it was found.
#pragma once
#include "base/Text.h"
#include <unordered_set>
#include <vector>

struct Finding {
    bool IsError;           // it would end the run, or leave it without a report
    Text File;              // path of the host
    std::int64_t Line = 0;  // 0: the whole file
    Text What;

    // "FILE:LINE: What", as far as there is a file and a line.
    Text Place() const;
    // The same behind "error: " or "warning: ", on one line.
    Text AsLine() const;
};

class Findings
{
public:
    // Notes a finding once.
    void Add(const Finding &theFinding);
    const std::vector<Finding> &All() const { return all; }
    std::int64_t Errors() const;

private:
    std::vector<Finding> all;
    std::unordered_set<Text> known;
};

// The number of the line of theText at a position that counts from 1.
std::int64_t LineAt(const Text &theText, std::int64_t thePosition);

struct RunOptions;
// The file that holds the keywords of a run, or is to hold them.
Text KeywordFile(const RunOptions &theOptions);
// Notes what is wrong with the keywords of a run.
void CheckKeywords(const RunOptions &theOptions, Findings &theFindings);
// Notes what is wrong with the places of the site and of the new site. False when the run would end before it has
// begun.
bool CheckPlace(const RunOptions &theOptions, Findings &theFindings);
