#include "toolkit/HostFiles.h"
#include "toolkit/Failure.h"
#include "toolkit/HostMemory.h"
#include "toolkit/HostWriter.h"
#include <algorithm>
#include <chrono>
#include <utility>

using namespace HostMemory;

namespace
{
std::vector<Entry *> outstanding;  // in the order in which they were asked for
std::int64_t outstandingBytes = 0, roomAtLastLook = 0;
std::vector<Text> failures;
HostWriter writer;
bool isWriterBusy = false;

// Larger files are copied at once: they are seldom pages, so nothing is won by waiting.
constexpr std::size_t waitAtMost = 1 << 20;
constexpr std::size_t bufferAtMost = 1 << 16;

bool IsProjectDirectory(std::string_view theName)
{
    const std::size_t digits = std::min(theName.find_first_not_of("0123456789"), theName.size());
    return digits >= 4 && (digits == theName.size() || theName.substr(digits) == "_store");
}

bool IsSavedFile(std::string_view theName)
{
    return theName.ends_with(".sav") || theName.ends_with(".chk") || theName.ends_with(".pro");
}

// True for the program's own saved files and all that lies in its projects; not by way of a link.
bool IsOwn(const Dir &theDir, std::string_view theName)
{
    const Dir *const program = FindDir(HostFiles::ProgramDir());
    if (&theDir == program)
        return IsSavedFile(theName);
    for (const Dir *dir = &theDir; dir && dir->Self && !dir->Self->IsLink; dir = dir->Parent())
        if (dir->Parent() == program)
            return IsProjectDirectory(dir->Self->Name);
    return false;
}

void Guard(const Dir &theDir, std::string_view theName, const Text &thePath)
{
    if (!IsOwn(theDir, theName))
        Fail("writing is not allowed there", thePath);
}

Entry *FindFile(const Text &thePath)
{
    std::string_view name;
    Dir *const dir = FindParent(thePath, name);
    return dir && !name.empty() ? dir->Find(name, HostIo::Kind::File) : nullptr;
}

// Waits for the files that are being written beside the program's work.
void FinishWriting()
{
    if (!std::exchange(isWriterBusy, false))
        return;
    for (const RuntimeFailure &failure : writer.Finish())
        failures.push_back(
            "Unable to write file:\r\n" + HostFiles::FromHost(failure.Where) + "\r\n\r\n" + failure.What);
}

// The same where theEntry is one of them.
void AwaitWriting(Entry *theEntry)
{
    if (theEntry && std::exchange(theEntry->IsBeingWritten, false))
        FinishWriting();
}

Entry &ExistingFile(const Text &thePath)
{
    Entry *const entry = FindFile(thePath);
    if (!entry)
        Fail("file not found", thePath);
    AwaitWriting(entry);
    return *entry;
}

// The file to write to, with its directory; the entry is null when it is a new one.
std::pair<Dir *, Entry *> Target(const Text &thePath, std::string_view &theName)
{
    Dir *const dir = FindParent(thePath, theName);
    if (!dir || theName.empty())
        Fail("path not found", thePath);
    Guard(*dir, theName, thePath);
    Entry *const entry = dir->Find(theName, HostIo::Kind::None);
    if (entry && (entry->What != HostIo::Kind::File || entry->IsLink))
        Fail("not a plain file", thePath);
    return {dir, entry};
}

// Writes the bytes that theEntry still lacks.
void MakeOutstanding(Entry &theEntry)
{
    if (const Entry *source = std::exchange(theEntry.CopyOf, nullptr))
        HostIo::Copy(source->HostPath(), theEntry.HostPath());
    if (const auto text = std::exchange(theEntry.Unwritten, nullptr))
        HostIo::Append(theEntry.HostPath(), *text);
}

// True while the disk has room for what is outstanding twice over: a copy that cannot be made is to fail when it is
// asked for, not later.
bool MayWait(std::int64_t theSize)
{
    if (theSize > static_cast<std::int64_t>(waitAtMost))
        return false;
    if (outstandingBytes + theSize > roomAtLastLook) {
        const std::int64_t room = HostIo::FreeSpace(HostFiles::ToHost(HostFiles::ProgramDir())) / 2;
        if (outstandingBytes + theSize > room)
            return false;
        roomAtLastLook = std::min(room, outstandingBytes + (std::int64_t{64} << 20));
    }
    return true;
}
}  // namespace

namespace HostFiles
{
bool IsFile(const Text &thePath)
{
    std::string_view name;
    Dir *const dir = FindParent(thePath, name);
    if (!dir || name.empty())
        return false;
    if (dir->Find(name, HostIo::Kind::File))
        return name[0] != '.';
    if (name.find_first_of("*?") == std::string_view::npos)
        return false;
    const Names names = dir->Listing(HostIo::Kind::File);
    return std::any_of(names->begin(), names->end(), [&](const Text &one) { return FitsPattern(one, Text(name)); });
}

bool IsDirectory(const Text &thePath)
{
    return FindDir(thePath) != nullptr;
}

Names Files(const Text &theDir)
{
    Dir *const dir = FindDir(theDir);
    return dir ? dir->Listing(HostIo::Kind::File) : std::make_shared<const std::vector<Text>>();
}

Names Directories(const Text &theDir)
{
    Dir *const dir = FindDir(theDir);
    return dir ? dir->Listing(HostIo::Kind::Directory) : std::make_shared<const std::vector<Text>>();
}

Text Read(const Text &theFile)
{
    Entry &entry = ExistingFile(theFile);
    if (entry.Unwritten)
        MakeOutstanding(entry);
    return HostIo::Read(entry.BytesPath());
}

Text SourceOfCopy(const Text &theFile)
{
    const Entry *const entry = FindFile(theFile);
    return entry && entry->CopyOf ? entry->CopyOf->HostPath() : "";
}

void Write(const Text &theFile, Text theContent)
{
    std::string_view name;
    const auto [dir, entry] = Target(theFile, name);
    // The new pages of a run: each is written once, and nothing asks for it before all are.
    if (entry && entry->CopyOf && theContent.size() <= waitAtMost) {
        entry->CopyOf = nullptr;
        entry->IsBeingWritten = isWriterBusy = true;
        writer.Put(entry->HostPath(), std::move(theContent));
        return;
    }
    AwaitWriting(entry);
    HostIo::Write(entry ? entry->HostPath() : dir->PathOf(name), theContent);
    if (!entry) {
        dir->Add(name, HostIo::Kind::File);
        return;
    }
    entry->CopyOf = nullptr;
    entry->Unwritten = nullptr;
}

void Append(const Text &theFile, const Text &theContent)
{
    std::string_view name;
    auto [dir, entry] = Target(theFile, name);
    if (!entry) {
        HostIo::Append(dir->PathOf(name), theContent);
        dir->Add(name, HostIo::Kind::File);
        return;
    }
    AwaitWriting(entry);
    if (entry->CopyOf)
        MakeOutstanding(*entry);
    if (!entry->Unwritten) {
        entry->Unwritten = std::make_unique<Text>();
        outstanding.push_back(entry);
    }
    *entry->Unwritten += theContent;
    if (entry->Unwritten->size() > bufferAtMost)
        MakeOutstanding(*entry);
}

void Copy(const Text &theSource, const Text &theTarget)
{
    Entry &source = ExistingFile(theSource);
    std::string_view name;
    auto [dir, entry] = Target(theTarget, name);
    if (&source == entry)
        return;
    AwaitWriting(entry);
    if (source.CopyOf || source.Unwritten)
        MakeOutstanding(source);
    // The first copy of a file finds out whether it may be read.
    if (source.Size < 0)
        source.Size = HostIo::ReadableSize(source.HostPath());
    const std::int64_t size = source.Size;
    if (!entry) {
        HostIo::MakeFile(dir->PathOf(name));
        entry = &dir->Add(name, HostIo::Kind::File);
    } else if (!entry->CopyOf) {
        entry->Unwritten = nullptr;
        HostIo::Copy(source.HostPath(), entry->HostPath());
        return;
    }
    entry->CopyOf = &source;
    // What the program itself may write later is copied now.
    if (IsOwn(*source.In, source.Name) || !MayWait(size)) {
        MakeOutstanding(*entry);
        return;
    }
    outstanding.push_back(entry);
    outstandingBytes += size;
}

void Delete(const Text &theFile)
{
    std::string_view name;
    const auto [dir, entry] = Target(theFile, name);
    if (!entry)
        Fail("file not found", theFile);
    AwaitWriting(entry);
    entry->CopyOf = nullptr;
    entry->Unwritten = nullptr;
    HostIo::Delete(entry->HostPath());
    dir->Remove(*entry);
}

std::int64_t Stamp(const Text &theFile)
{
    const Entry *const entry = FindFile(theFile);
    return entry ? HostIo::FileStamp(entry->HostPath()) : -1;
}

bool EndsInLineFeed(const Text &theFile)
{
    const Entry &entry = ExistingFile(theFile);
    if (entry.Unwritten && !entry.Unwritten->empty())
        return entry.Unwritten->back() == '\n';
    return HostIo::EndsInLineFeed(entry.BytesPath());
}

bool MakeDirectory(const Text &theDir)
{
    const Text path = Plain(theDir);
    std::string_view name;
    Dir *const dir = FindParent(path, name);
    if (!dir || name.empty() || dir->Find(name, HostIo::Kind::None))
        return false;
    const bool isProject = dir == FindDir(ProgramDir()) && IsProjectDirectory(name);
    if (!isProject && !IsOwn(*dir, name))
        return false;
    if (!HostIo::MakeDirectory(dir->PathOf(name))) {
        dir->ReadAgain();
        return false;
    }
    dir->Add(name, HostIo::Kind::Directory);
    return true;
}

void Settle(int theMilliseconds)
{
    using Clock = std::chrono::steady_clock;
    const auto until = Clock::now() + std::chrono::milliseconds(theMilliseconds);
    FinishWriting();
    // Taken first: telling of a failure may come back here.
    auto entries = std::exchange(outstanding, {});
    auto next = entries.begin();
    while (next != entries.end() && Clock::now() < until) {
        Entry *entry = *next++;
        if (!entry->CopyOf && !entry->Unwritten)
            continue;
        const Text source = entry->CopyOf ? FromHost(entry->CopyOf->HostPath()) : "";
        try {
            MakeOutstanding(*entry);
        } catch (const RuntimeFailure &failure) {
            failures.push_back("Unable to copy file:\r\n" + source + "\r\nto file:\r\n" + FromHost(entry->HostPath()) +
                               "\r\n\r\n" + failure.What);
        }
    }
    outstanding.insert(outstanding.begin(), next, entries.end());
    if (outstanding.empty())
        outstandingBytes = roomAtLastLook = 0;
}

bool IsOutstanding()
{
    return isWriterBusy || !outstanding.empty();
}

std::vector<Text> TakeFailures()
{
    return std::exchange(failures, {});
}

void RecheckAfter(int theMilliseconds)
{
    RecheckMilliseconds = theMilliseconds;
}
}  // namespace HostFiles
