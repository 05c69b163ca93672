// The host's files as the program knows them: by paths of the form x:\dir\file, with names found whatever their case.
//
// Writes outside the program directory's saved files, its project directories and their stores are refused with a
// run-time failure. These themselves may be links to other places in the program directory; other links are not
// followed to write.
#pragma once
#include "disk/Expectation.h"
#include <functional>
#include <memory>
#include <string_view>
#include <vector>

namespace Files
{
using Names = std::shared_ptr<const std::vector<Text>>;

// Whether a name in the program directory is that of a file with saved values, or of a project's directory or its
// store.
bool IsSavedFile(std::string_view theName);
bool IsProjectDirectory(std::string_view theName);

// Why a write was refused that would have followed a link.
inline constexpr const char *linkLeadsOut = "A link leads out of Ferncastle's own folder";
inline constexpr const char *linkLeadsToSite = "A link leads into the directory of the site";
inline constexpr const char *linkLeadsNowhere = "This link leads nowhere";

// The path of the host for thePath, with the case that the disk has as far as it is there; empty without a drive.
Text ToHost(const Text &thePath);
// Whether thePath is theDir or lies below it, for two directories that are there, with all links and drives followed.
bool IsReallyInside(const Text &thePath, const Text &theDir);

// True for a visible plain file. "*" and "?" in the last element are wildcards, unless a name really contains them.
bool IsFile(const Text &thePath);
// True for a directory, with or without a final backslash.
bool IsDirectory(const Text &thePath);
// True when the drive that thePath begins with is there.
bool DriveExists(const Text &thePath);
// The visible files, or directories, of a directory, ascending ignoring case. Empty when there is no such directory.
Names FilesIn(const Text &theDir);
Names DirectoriesIn(const Text &theDir);

// All of these fail with a run-time failure, which is also among the losses.
Text Read(const Text &theFile);
// Replaces a file that exists in one step: a reader sees the old content or the new one, never a part.
void Write(const Text &theFile, const Text &theContent);
// The same for a content that comes in pieces and may take more memory than there is: thePieces hands them over. Its
// own failures are not among the losses. A stand-in is not asked.
using Pieces = std::function<void(const std::function<void(std::string_view)> &)>;
void Write(const Text &theFile, const Pieces &thePieces);
void Append(const Text &theFile, const Text &theContent);
// Copies content. theExpectation tells how Rewrite will change the copy later, if that is known. The copy is written in
// that form at once, but the program treats it as a plain copy until then. A new file may appear on the disk a moment
// later.
void Copy(const Text &theSource, const Text &theTarget, const Expectation &theExpectation = {});
void Delete(const Text &theFile);
// Replaces the content of theFile by what theChange makes of it.
void Rewrite(const Text &theFile, const Expectation &theChange);
// True when the file is empty or its last byte is LF.
bool EndsInLineFeed(const Text &theFile);

// Keeps links of the program directory from leading a write into the user's site. The variable holds its directory, a
// path of the program, at any time.
void ProtectSite(const Text *theDir);

// Takes over the writing of whole files, so that a run can be rehearsed. The program then knows such a file by its
// name, but its content is nowhere. Paths are the host's.
struct StandIn {
    virtual ~StandIn() = default;
    // True when it takes theFile over. Fails where the writing would fail.
    virtual bool TakesWrite(const Text &theFile, const Text &theContent) = 0;
    virtual bool TakesCopy(const Text &theSource, const Text &theFile) = 0;
    virtual bool TakesRewrite(const Text &theFile, const Expectation &theChange) = 0;
    // Fails where theDir could not be made.
    virtual void BeforeDirectory(const Text &theDir) const = 0;
};
void SetStandIn(StandIn *theStandIn);

// Changes when the file changes; -1 when it isn't there. Never fails.
std::int64_t Stamp(const Text &theFile);
// Makes one directory below an existing one; false when it is there already or cannot be made.
bool MakeDirectory(const Text &theDir);
}  // namespace Files
