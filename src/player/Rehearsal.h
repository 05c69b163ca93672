// A run without writing: a temporary program directory, in which the files of the new site have names and sizes but no
// content. Only directories and the few files of the project's store are really made there.
#pragma once
#include "disk/Files.h"
#include "player/Host.h"
#include "player/RunOptions.h"
#include <unordered_map>

class Rehearsal final : public Files::StandIn
{
public:
    // Makes the temporary program directory, which refers to all that a run reads in the real one, and lets the program
    // use it. From then on the program is at its rehearsal.
    explicit Rehearsal(const RunOptions &theOptions);
    ~Rehearsal() override;

    // The options with which the run is rehearsed: a new project, with keywords that are enough for every name.
    const RunOptions &Options() const { return options; }
    const Text &RealProgram() const { return realProgram; }
    // The directory that the run would make the new site in.
    const Text &RealProject() const { return realProject; }
    // A path of the host with the real program directory in place of the temporary one.
    Text RealPath(const Text &thePath) const;
    // The files of the new site, and their bytes once the run is over.
    std::int64_t FileCount() const { return static_cast<std::int64_t>(sizes.size()); }
    std::int64_t ByteCount() const { return bytes; }
    // The directories of the new site that would hold more files than the program can count, by their real paths, with
    // the files that earlier runs have left there.
    std::vector<Text> OverfullDirectories() const;

    bool TakesWrite(const Text &theFile, const Text &theContent) override;
    bool TakesCopy(const Text &theSource, const Text &theFile) override;
    bool Has(const Text &theFile) const override { return sizes.contains(theFile); }

private:
    void LinkProgramFiles() const;
    void PrepareKeywords(const RunOptions &theOptions);
    bool IsInNewSite(const Text &theFile) const;
    void Note(const Text &theFile, std::int64_t theSize);

    const Text realProgram, realProject;
    Host::TempDir temp;
    RunOptions options;
    std::unordered_map<Text, std::int64_t> sizes;   // of the new site's files
    std::unordered_map<Text, std::int64_t> copies;  // what the pass at the end makes of a source, by depth and source
    std::int64_t bytes = 0;
};
