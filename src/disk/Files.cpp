#include "disk/Files.h"
#include "base/Failure.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include <algorithm>

using DirectoryCache::Dir;
using DirectoryCache::Entry;
using DirectoryCache::FindDir;
using DirectoryCache::FindParent;

namespace
{
Files::StandIn *standIn = nullptr;
const Text *siteDir = nullptr;  // see ProtectSite

// More names than a procedure of the program can count.
constexpr std::size_t namesAtMost = 32767;

// Whether one path of the host is the other or lies below it, both with their links followed; no when one is empty.
bool IsInsideReal(const Text &thePath, const Text &theDir)
{
    const auto closed = [](const Text &thePlace) { return thePlace.ends_with("/") ? thePlace : thePlace + "/"; };
    return !thePath.empty() && !theDir.empty() && closed(thePath).starts_with(closed(theDir));
}

// Where a link of the program directory leads; empty when that is not below the program directory.
Text TargetInProgram(const Text &theLink)
{
    const Text real = Io::RealPath(theLink), program = Io::RealPath(Paths::ProgramHostDir() + '/');
    return real != program && IsInsideReal(real, program) ? real : Text();
}

// Whether a directory, with its links followed, has files of the user's site.
bool HasSiteIn(const Text &theReal)
{
    if (!siteDir || siteDir->size() < 3)
        return false;
    // Not by way of the cache, whose entries are in use here.
    Text site = Paths::DriveRoot((*siteDir)[0]) + siteDir->substr(2);
    std::replace(site.begin(), site.end(), '\\', '/');
    site = Io::RealPath(site);
    return IsInsideReal(site, theReal) || IsInsideReal(theReal, site);
}

// The project directory that holds theDir, or is it; null when there is none, or when a link leads from there to
// theDir.
const Dir *ProjectOf(const Dir &theDir)
{
    const Text &program = Paths::ProgramHostDir();
    for (const Dir *dir = &theDir; dir->Parent; dir = dir->Parent) {
        if (dir->Parent->HostPath == program)
            return Files::IsProjectDirectory(std::string_view(dir->HostPath).substr(program.size() + 1)) ? dir
                                                                                                         : nullptr;
        if (dir->IsLink)
            break;
    }
    return nullptr;
}

// Why the program must not write that name; empty when it may: to its own saved files and to all that lies in its
// projects. A project directory may be a link to another place in the program directory.
Text WhyNotOwn(const Dir &theDir, std::string_view theName)
{
    constexpr const char *notAllowed = "writing is not allowed there";
    if (theDir.HostPath == Paths::ProgramHostDir())
        return Files::IsSavedFile(theName) ? "" : notAllowed;
    const Dir *project = ProjectOf(theDir);
    if (!project)
        return notAllowed;
    if (!project->IsLink)
        return {};
    const Text real = TargetInProgram(project->HostPath);
    return real.empty() ? Files::linkLeadsOut : HasSiteIn(real) ? Files::linkLeadsToSite : "";
}

// The host's path of a file that is there; empty when it isn't.
Text FindFile(const Text &thePath)
{
    std::string_view name;
    Dir *const dir = FindParent(thePath, name);
    const Entry *const entry = dir && !name.empty() ? dir->Find(name, Io::Kind::File) : nullptr;
    return entry ? dir->PathOf(entry->Name) : Text();
}

Text ExistingFile(const Text &thePath)
{
    Text Result = FindFile(thePath);
    if (Result.empty())
        Fail("file not found", thePath);
    return Result;
}

bool IsDangling(const Entry &theEntry)
{
    return theEntry.IsLink && theEntry.What == Io::Kind::None;
}

// A file to write to: its directory, its name there or the name that it will have, and what is there now.
struct Target {
    explicit Target(const Text &thePath)
    {
        std::string_view name;
        In = FindParent(thePath, name);
        if (!In || name.empty())
            Fail("path not found", thePath);
        if (const Text reason = WhyNotOwn(*In, name); !reason.empty())
            Fail(reason, thePath);
        Known = In->Find(name, Io::Kind::None);
        if (Known && Known->What != Io::Kind::File)
            Fail(IsDangling(*Known) ? Files::linkLeadsNowhere : "not a plain file", thePath);
        Name = Known ? Known->Name : Text(name);
        Host = In->PathOf(Name);
        // A link to a file is replaced by a file, but the program's own settings may be kept elsewhere in its
        // directory.
        if (Known && Known->IsLink && In->HostPath == Paths::ProgramHostDir())
            if (const Text real = TargetInProgram(Host); !real.empty() && !HasSiteIn(real)) {
                Host = real;
                IsFollowed = true;
            }
    }
    // Notes that a plain file is there now.
    void NoteWritten() const
    {
        if (IsFollowed)
            return;
        if (Known) {
            Known->IsLink = false;
            In->NoteOwnChange();
        } else {
            In->Add(Name, Io::Kind::File);
        }
    }
    void NoteDraft() const { In->AddDraft(Name); }
    // Notes a file that the stand-in has taken over, so that its directory isn't read anew and forgets it.
    void NoteTakenOver() const
    {
        if (!Known)
            NoteDraft();
    }

    Dir *In = nullptr;
    Entry *Known = nullptr;
    Text Name, Host;
    bool IsFollowed = false;  // Host is what the link of that name leads to
};

// Runs theWork. A failure in it goes on to the caller, and is noted for the user.
template <class Work> auto Noted(Work &&theWork)
{
    try {
        return theWork();
    } catch (const RuntimeFailure &failure) {
        Losses::Note(failure);
        throw;
    }
}

Files::Names ListingOf(const Text &theDir, Io::Kind theKind)
{
    Dir *dir = FindDir(theDir);
    if (dir && dir->HasDrafts()) {
        PendingWrites::FinishWriting();
        dir = FindDir(theDir);
    }
    if (!dir)
        return std::make_shared<const std::vector<Text>>();
    Files::Names Result = dir->Listing(theKind);
    if (!dir->ReadFailure().empty())
        Losses::Note({dir->ReadFailure(), theDir});
    if (Result->size() > namesAtMost)
        Losses::Note({"There are more than 32,767 names in this directory. The program can't go through it", theDir});
    return Result;
}
}  // namespace

namespace Files
{
bool IsProjectDirectory(std::string_view theName)
{
    const std::size_t digits = std::min(theName.find_first_not_of("0123456789"), theName.size());
    return digits >= 4 && (digits == theName.size() || theName.substr(digits) == "_store");
}

bool IsSavedFile(std::string_view theName)
{
    return theName.ends_with(".sav") || theName.ends_with(".chk") || theName.ends_with(".pro");
}

Text ToHost(const Text &thePath)
{
    const Text path = Paths::Normalize(thePath);
    const Text root = path.size() < 3 || path[1] != ':' ? Text() : Paths::DriveRoot(path[0]);
    if (root.empty() || path.size() == 3)
        return root;
    std::string_view name;
    if (Dir *const dir = FindParent(path, name)) {
        const Entry *entry = dir->Find(name, Io::Kind::None);
        return dir->PathOf(entry ? std::string_view(entry->Name) : name);
    }
    const Text parent = ToHost(path.substr(0, path.size() - name.size()));
    return parent.empty() ? parent : parent + (parent.ends_with('/') ? "" : "/") + Text(name);
}

bool IsReallyInside(const Text &thePath, const Text &theDir)
{
    return IsInsideReal(Io::RealPath(ToHost(thePath)), Io::RealPath(ToHost(theDir)));
}

bool IsFile(const Text &thePath)
{
    std::string_view name;
    Dir *const dir = FindParent(thePath, name);
    if (!dir || name.empty())
        return false;
    if (const Entry *entry = dir->Find(name, Io::Kind::File))
        return !entry->IsHidden;
    if (name.find_first_of("*?") == std::string_view::npos)
        return false;
    const Names names = dir->Listing(Io::Kind::File);
    return std::any_of(
        names->begin(), names->end(), [&](const Text &one) { return Paths::MatchesPattern(one, Text(name)); });
}

bool IsDirectory(const Text &thePath)
{
    return FindDir(thePath) != nullptr;
}

bool DriveExists(const Text &thePath)
{
    return thePath.size() >= 2 && thePath[1] == ':' && IsDirectory(Text{thePath[0], ':', '\\'});
}

Names FilesIn(const Text &theDir)
{
    return ListingOf(theDir, Io::Kind::File);
}

Names DirectoriesIn(const Text &theDir)
{
    return ListingOf(theDir, Io::Kind::Directory);
}

Text Read(const Text &theFile)
{
    return Noted([&] {
        const Text file = ExistingFile(theFile);
        if (const Text *source = PendingWrites::SourceOf(file))
            return Io::Read(*source);
        PendingWrites::Complete(file);
        return Io::Read(file);
    });
}

void Write(const Text &theFile, const Text &theContent)
{
    Noted([&] {
        const Target target(theFile);
        if (standIn && standIn->TakesWrite(target.Host, theContent)) {
            target.NoteTakenOver();
            return;
        }
        PendingWrites::Await(target.Host);
        Io::Write(target.Host, theContent);
        PendingWrites::Forget(target.Host);
        target.NoteWritten();
    });
}

void Write(const Text &theFile, const Pieces &thePieces)
{
    const Text host = Noted([&] { return Target(theFile).Host; });
    PendingWrites::Await(host);
    try {
        Io::Write(host, thePieces);
    } catch (const RuntimeFailure &failure) {
        if (failure.Where == host)
            Losses::Note(failure);
        throw;
    }
    PendingWrites::Forget(host);
    Target(theFile).NoteWritten();  // thePieces may have used the cache
}

void Append(const Text &theFile, const Text &theContent)
{
    Noted([&] {
        const Target target(theFile);
        if (target.Known && !target.IsFollowed) {
            PendingWrites::AddText(target.Host, theContent);
            return;
        }
        Io::Append(target.Host, theContent);
        target.NoteWritten();
    });
}

void Copy(const Text &theSource, const Text &theTarget, const Expectation &theExpectation)
{
    Noted([&] {
        const Text source = ExistingFile(theSource);
        PendingWrites::Complete(source);
        const Target target(theTarget);
        if (standIn && standIn->TakesCopy(source, target.Host)) {
            target.NoteTakenOver();
            return;
        }
        if (theExpectation && !target.Known && PendingWrites::AddCopy(target.Host, source, theExpectation)) {
            target.NoteDraft();
            return;
        }
        if (source == target.Host)
            return;
        PendingWrites::Await(target.Host);
        Io::Copy(source, target.Host);
        PendingWrites::Forget(target.Host);
        target.NoteWritten();
    });
}

void Delete(const Text &theFile)
{
    Noted([&] {
        const Target target(theFile);
        if (!target.Known)
            Fail("file not found", theFile);
        const Text file = target.In->PathOf(target.Name);  // a link itself, not what it leads to
        PendingWrites::Await(file);
        PendingWrites::Forget(file);
        Io::Delete(file);
        target.In->Remove(*target.Known);
    });
}

void Rewrite(const Text &theFile, const Expectation &theChange)
{
    const Text file = FindFile(theFile);
    if (standIn && Noted([&] { return standIn->TakesRewrite(file, theChange); }))
        return;
    if (file.empty() || !PendingWrites::Confirm(file, theChange))
        Write(theFile, theChange.Apply(Read(theFile)));
}

bool EndsInLineFeed(const Text &theFile)
{
    return Noted([&] {
        const Text file = ExistingFile(theFile);
        if (const Text *more = PendingWrites::AddedText(file))
            return more->back() == '\n';
        const Text *source = PendingWrites::SourceOf(file);
        return Io::EndsInLineFeed(source ? *source : file);
    });
}

void ProtectSite(const Text *theDir)
{
    siteDir = theDir;
}

void SetStandIn(StandIn *theStandIn)
{
    standIn = theStandIn;
}

std::int64_t Stamp(const Text &theFile)
{
    const Text file = FindFile(theFile);
    return file.empty() ? -1 : Io::LookAtFile(file).Stamp;
}

bool MakeDirectory(const Text &theDir)
{
    const Text path = Paths::Normalize(theDir);
    std::string_view name;
    Dir *const dir = FindParent(path, name);
    if (!dir || name.empty())
        return false;
    if (const Entry *entry = dir->Find(name, Io::Kind::None)) {
        if (IsDangling(*entry))
            Losses::Note({linkLeadsNowhere, theDir});
        return false;
    }
    const bool isProject = dir->HostPath == Paths::ProgramHostDir() && IsProjectDirectory(name);
    if (!isProject && !WhyNotOwn(*dir, name).empty())
        return false;
    try {
        if (standIn)
            standIn->BeforeDirectory(dir->PathOf(name));
        Io::MakeDirectory(dir->PathOf(name));
    } catch (const RuntimeFailure &failure) {
        Losses::Note(failure);
        // What a stand-in has taken over stands in the cache alone.
        if (!standIn)
            dir->Distrust();
        return false;
    }
    dir->Add(name, Io::Kind::Directory);
    return true;
}
}  // namespace Files
