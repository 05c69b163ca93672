// A run without writing: a temporary program directory, in which the files of the new site have names and sizes but no
// content. Only directories and the few files of the project's store are really made there.
#pragma once
#include "disk/Files.h"
#include "player/Host.h"
#include "player/RunOptions.h"
#include <unordered_map>
#include <unordered_set>

class Rehearsal final : public Files::StandIn
{
public:
    // Makes the temporary program directory, which looks to the program as the real one does, with the project's new
    // site and store as they are, and lets the program use it. From then on the program is at its rehearsal.
    explicit Rehearsal(const RunOptions &theOptions);
    ~Rehearsal() override;

    // The options with which the run is rehearsed: with keywords that are enough for every name.
    const RunOptions &Options() const { return options; }
    const Text &RealProgram() const { return realProgram; }
    // The directory that the run would make the new site in.
    const Text &RealProject() const { return realProject; }
    // A path of the host with the real program directory in place of the temporary one.
    Text RealPath(const Text &thePath) const;
    // theWords with the same change in every path that they hold.
    Text WithRealPaths(const Text &theWords) const;
    // The directory of theFile, when the user may not write there; otherwise empty. Both are real paths.
    Text ClosedDirectoryOf(const Text &theFile) const;

    // The files that the run writes into the new site, how many of these were there, and how many others stay.
    std::int64_t FileCount() const { return written; }
    std::int64_t ReplacedCount() const { return replaced; }
    std::int64_t KeptCount() const { return static_cast<std::int64_t>(files.size()) - written; }
    // The bytes of the files that it writes, and by how many bytes the new site grows.
    std::int64_t ByteCount() const { return bytes; }
    std::int64_t Growth() const { return bytes - replacedBytes; }
    // The directories of the new site that would hold more files than the program can count, by their real paths.
    std::vector<Text> OverfullDirectories() const;

    bool TakesWrite(const Text &theFile, const Text &theContent) override;
    bool TakesCopy(const Text &theSource, const Text &theFile) override;
    bool TakesRewrite(const Text &theFile, const Expectation &theChange) override;
    void BeforeDirectory(const Text &theDir) const override;

private:
    struct NewFile {
        std::int64_t Size = 0;
        bool IsWritten = false;  // false: an earlier run has left it
    };

    void LinkProgramFiles() const;
    void LinkStore() const;
    void TakeNewSite(const Text &theDir);
    void PrepareKeywords(const RunOptions &theOptions);
    bool IsInNewSite(const Text &theFile) const;
    void RequireRoom(const Text &theFile) const;
    void Note(const Text &theFile, std::int64_t theSize);

    const Text realProgram, realProject;
    Host::TempDir temp;
    RunOptions options;
    std::unordered_map<Text, NewFile> files;        // of the new site
    std::unordered_set<Text> closed;                // its directories in which the user may not write
    std::unordered_map<Text, std::int64_t> copies;  // what the pass at the end makes of a source, by depth and source
    std::int64_t bytes = 0, replacedBytes = 0, written = 0, replaced = 0;
};
