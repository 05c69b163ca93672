// What the command "check" says in the end: for people and as JSON.
#pragma once
#include "player/Findings.h"
#include "player/Rehearsal.h"
#include "player/RunOptions.h"
#include "player/Summary.h"

struct CheckReport {
    const RunOptions &Options;
    const Findings &Found;
    const Summary &Run;          // of the rehearsed run
    const Rehearsal *Rehearsed;  // null: the run would end before it has begun
    std::int64_t BytesFree;

    // Prints it, and writes the JSON file. Returns the exit status.
    int Tell() const;

private:
    Text ForPeople() const;
    Text AsJson(int theStatus) const;
};
