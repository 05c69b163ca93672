#include "disk/Files.h"
#include "base/Failure.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include <algorithm>
#include <unordered_map>

using DirectoryCache::Dir;
using DirectoryCache::Entry;
using DirectoryCache::FindDir;
using DirectoryCache::FindParent;

namespace
{
// The sizes of the files that copies were made of, all of them readable then.
std::unordered_map<Text, std::int64_t> sourceSizes;

// What Rewrite has made of the sources of copies; when much is kept, it is begun anew.
std::unordered_map<Text, Text> rewritten;
std::size_t rewrittenBytes = 0;
constexpr std::size_t rewrittenAtMost = 32 << 20, oneRewrittenAtMost = 1 << 20;

bool IsProjectDirectory(std::string_view theName)
{
    const std::size_t digits = std::min(theName.find_first_not_of("0123456789"), theName.size());
    return digits >= 4 && (digits == theName.size() || theName.substr(digits) == "_store");
}

bool IsSavedFile(std::string_view theName)
{
    return theName.ends_with(".sav") || theName.ends_with(".chk") || theName.ends_with(".pro");
}

// True for the program's own saved files and all that lies in its projects, but not by way of a link.
bool IsOwn(const Dir &theDir, std::string_view theName)
{
    const Text &program = Paths::ProgramHostDir();
    if (theDir.HostPath == program)
        return IsSavedFile(theName);
    for (const Dir *dir = &theDir; dir->Parent && !dir->IsLink; dir = dir->Parent)
        if (dir->Parent->HostPath == program)
            return IsProjectDirectory(std::string_view(dir->HostPath).substr(program.size() + 1));
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
    PendingWrites::AwaitWriter(Result);
    return Result;
}

// A file to write to: its directory, its name there or the name that it will have, and whether it exists.
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
        if (Known && (Known->What != Io::Kind::File || Known->IsLink))
            Fail("not a plain file", thePath);
        Name = Known ? Known->Name : Text(name);
        Host = In->PathOf(Name);
    }
    // Notes that the file has been made.
    void NoteNew() const
    {
        if (!Known)
            In->Add(Name, Io::Kind::File);
    }

    Dir *In = nullptr;
    const Entry *Known = nullptr;
    Text Name, Host;
};
}  // namespace

namespace Files
{
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
    const Text path = Io::RealPath(ToHost(thePath)) + '/', dir = Io::RealPath(ToHost(theDir)) + '/';
    return dir != "/" && path.starts_with(dir);
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
    Dir *const dir = FindDir(theDir);
    return dir ? dir->Listing(Io::Kind::File) : std::make_shared<const std::vector<Text>>();
}

Names DirectoriesIn(const Text &theDir)
{
    Dir *const dir = FindDir(theDir);
    return dir ? dir->Listing(Io::Kind::Directory) : std::make_shared<const std::vector<Text>>();
}

Text Read(const Text &theFile)
{
    const Text file = ExistingFile(theFile);
    if (PendingWrites::AddedText(file))
        PendingWrites::Complete(file);
    return Io::Read(PendingWrites::BytesPath(file));
}

void Write(const Text &theFile, Text theContent)
{
    const Target target(theFile);
    // The new pages of a run: nothing asks for one before all of them are written.
    if (PendingWrites::IsCopy(target.Host)) {
        PendingWrites::WriteLater(target.Host, std::move(theContent));
        return;
    }
    PendingWrites::AwaitWriter(target.Host);
    Io::Write(target.Host, theContent);
    PendingWrites::Forget(target.Host);
    target.NoteNew();
}

void Append(const Text &theFile, const Text &theContent)
{
    const Target target(theFile);
    if (!target.Known) {
        Io::Append(target.Host, theContent);
        target.NoteNew();
        return;
    }
    PendingWrites::AwaitWriter(target.Host);
    PendingWrites::AddText(target.Host, theContent);
}

void Copy(const Text &theSource, const Text &theTarget)
{
    const Text source = ExistingFile(theSource);
    std::string_view name;
    // What the program itself may write later is copied now.
    const bool isOwnSource = IsOwn(*FindParent(theSource, name), source);
    const Target target(theTarget);
    if (source == target.Host)
        return;
    PendingWrites::AwaitWriter(target.Host);
    PendingWrites::Complete(source);
    const auto [known, isFirst] = sourceSizes.try_emplace(source, 0);
    if (isFirst)
        try {
            known->second = Io::ReadableSize(source);
        } catch (const RuntimeFailure &) {
            sourceSizes.erase(known);
            throw;
        }
    if (!target.Known) {
        Io::MakeFile(target.Host);
        target.NoteNew();
    } else if (!PendingWrites::IsCopy(target.Host)) {
        PendingWrites::Forget(target.Host);
        Io::Copy(source, target.Host);
        return;
    }
    if (isOwnSource || !PendingWrites::MayWait(known->second)) {
        PendingWrites::Forget(target.Host);
        Io::Copy(source, target.Host);
    } else
        PendingWrites::AddCopy(target.Host, source, known->second);
}

void Delete(const Text &theFile)
{
    const Target target(theFile);
    if (!target.Known)
        Fail("file not found", theFile);
    PendingWrites::AwaitWriter(target.Host);
    PendingWrites::Forget(target.Host);
    Io::Delete(target.Host);
    target.In->Remove(*target.Known);
}

bool EndsInLineFeed(const Text &theFile)
{
    const Text file = ExistingFile(theFile);
    if (const Text *added = PendingWrites::AddedText(file))
        return added->back() == '\n';
    return Io::EndsInLineFeed(PendingWrites::BytesPath(file));
}

void Rewrite(const Text &theFile, Transform theTransform, const Text &theArgument)
{
    const Text file = FindFile(theFile);
    if (file.empty() || !PendingWrites::IsCopy(file)) {
        Write(theFile, theTransform(Read(theFile), theArgument));
        return;
    }
    const Text key = theArgument + PendingWrites::BytesPath(file);
    const auto known = rewritten.find(key);
    if (known != rewritten.end()) {
        Write(theFile, known->second);
        return;
    }
    Text content = theTransform(Read(theFile), theArgument);
    if (content.size() <= oneRewrittenAtMost) {
        if (rewrittenBytes + content.size() > rewrittenAtMost)
            EndRewriting();
        rewrittenBytes += content.size();
        rewritten[key] = content;
    }
    Write(theFile, std::move(content));
}

void EndRewriting()
{
    rewritten.clear();
    rewrittenBytes = 0;
}

std::int64_t Stamp(const Text &theFile)
{
    const Text file = FindFile(theFile);
    return file.empty() ? -1 : Io::FileStamp(file);
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
    if (!Io::MakeDirectory(dir->PathOf(name))) {
        dir->Distrust();
        return false;
    }
    dir->Add(name, Io::Kind::Directory);
    return true;
}
}  // namespace Files
