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

// More names than a procedure of the program can count.
constexpr std::size_t namesAtMost = 32767;

// True for the program's own saved files and all that lies in its projects, but not by way of a link.
bool IsOwn(const Dir &theDir, std::string_view theName)
{
    const Text &program = Paths::ProgramHostDir();
    if (theDir.HostPath == program)
        return Files::IsSavedFile(theName);
    for (const Dir *dir = &theDir; dir->Parent && !dir->IsLink; dir = dir->Parent)
        if (dir->Parent->HostPath == program)
            return Files::IsProjectDirectory(std::string_view(dir->HostPath).substr(program.size() + 1));
    return false;
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

// A file to write to: its directory, its name there or the name that it will have, and what is there now.
struct Target {
    explicit Target(const Text &thePath)
    {
        std::string_view name;
        In = FindParent(thePath, name);
        if (!In || name.empty())
            Fail("path not found", thePath);
        if (!IsOwn(*In, name))
            Fail("writing is not allowed there", thePath);
        Known = In->Find(name, Io::Kind::None);
        if (Known && Known->What != Io::Kind::File)
            Fail("not a plain file", thePath);
        Name = Known ? Known->Name : Text(name);
        Host = In->PathOf(Name);
    }
    // Notes that a plain file is there now.
    void NoteWritten() const
    {
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
    return parent.empty() ? parent : parent + '/' + Text(name);
}

bool IsReallyInside(const Text &thePath, const Text &theDir)
{
    const auto closed = [](const Text &theHostDir) {
        return theHostDir.ends_with("/") ? theHostDir : theHostDir + "/";
    };
    const Text path = Io::RealPath(ToHost(thePath)), dir = Io::RealPath(ToHost(theDir));
    return !path.empty() && !dir.empty() && closed(path).starts_with(closed(dir));
}

bool IsFile(const Text &thePath)
{
    std::string_view name;
    Dir *const dir = FindParent(thePath, name);
    if (!dir || name.empty())
        return false;
    if (dir->Find(name, Io::Kind::File))
        return name[0] != '.';
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
        if (target.Known) {
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
        PendingWrites::Await(target.Host);
        PendingWrites::Forget(target.Host);
        Io::Delete(target.Host);
        target.In->Remove(*target.Known);
    });
}

void Rewrite(const Text &theFile, const Expectation &theChange)
{
    const Text file = FindFile(theFile);
    if (standIn && standIn->Has(file))
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
    if (!dir || name.empty() || dir->Find(name, Io::Kind::None))
        return false;
    const bool isProject = dir->HostPath == Paths::ProgramHostDir() && IsProjectDirectory(name);
    if (!isProject && !IsOwn(*dir, name))
        return false;
    try {
        Io::MakeDirectory(dir->PathOf(name));
    } catch (const RuntimeFailure &failure) {
        Losses::Note(failure);
        dir->Distrust();
        return false;
    }
    dir->Add(name, Io::Kind::Directory);
    return true;
}
}  // namespace Files
