#include "disk/DirectoryCache.h"
#include "base/Failure.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include <algorithm>
#include <chrono>
#include <unordered_map>
#include <utility>

namespace DirectoryCache
{
namespace
{
struct PathHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view thePath) const { return std::hash<std::string_view>()(thePath); }
};
// Directories by the very text that asked for them.
std::unordered_map<Text, Dir *, PathHash, std::equal_to<>> places;
unsigned drivesOfPlaces = 0;  // Paths::DriveChanges when they were found
// The host's roots by their paths: one with an empty path, or one for each drive.
std::unordered_map<Text, std::unique_ptr<Dir>> roots;
int recheckInterval = 20;  // milliseconds
unsigned draftRound = 1;

// A directory that was changed so short a time before it was read may be changed once more within the same tick of the
// file system's clock.
constexpr std::int64_t finestTick = 50'000'000;

std::int64_t WallNanoseconds()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

// To be called after every change among directories.
void ForgetPlaces()
{
    places.clear();
}

// All drives share the host's trees, so that a directory that two drives lead to is kept once.
Dir *FindRoot(char theLetter)
{
    const Text path = Paths::DriveRoot(theLetter);
    if (path.empty())
        return nullptr;
    const std::size_t first = path.find('/');
    std::unique_ptr<Dir> &root = roots[path.substr(0, first)];
    if (!root)
        root = std::make_unique<Dir>(path.substr(0, first), nullptr, false);
    root->Recheck();
    Dir *dir = root->IsGone() ? nullptr : root.get();
    for (std::size_t at = first + 1; dir && at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        dir = dir->Enter(path.substr(at, end - at));
        at = end + 1;
    }
    return dir;
}
}  // namespace

std::size_t FoldHash::operator()(std::string_view theName) const
{
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : theName)
        hash = (hash ^ static_cast<unsigned char>(LowerChar(c))) * 0x100000001b3u;
    return hash ^ (hash >> 32);
}

bool FoldEqual::AreEqual(std::string_view a, std::string_view b)
{
    return Paths::CompareIgnoringCase(a, b) == 0;
}

void SetRecheckInterval(int theMilliseconds)
{
    recheckInterval = theMilliseconds;
}

std::int64_t Milliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

bool IsRecent(std::int64_t theTime)
{
    return theTime >= 0 && recheckInterval > 0 && Milliseconds() - theTime < recheckInterval;
}

void Dir::NoteOwnChange()
{
    lastOwnChange = WallNanoseconds();
}

void Dir::Recheck()
{
    if (HasDrafts() && isTrusted)
        return;
    if (std::exchange(drafts, 0) != 0)
        isTrusted = false;
    if (isTrusted && IsRecent(lastLook))
        return;
    lastLook = Milliseconds();
    const auto [changed, id] = Io::LookAt(HostPath + (Parent ? "" : "/"));
    // Another directory, or a link, that has taken this one's place is not this one.
    isGone = changed < 0 || (identity != Io::Identity() && id != identity);
    identity = id;
    if (isGone) {
        ForgetPlaces();
        return;
    }
    // A change no later than the program's own last one is taken for that.
    const bool isKnown = changed == stamp || changed <= lastOwnChange;
    stamp = changed;
    if (isTrusted && !isFresh && isKnown)
        return;
    isTrusted = true;
    isFresh = changed > lastOwnChange && WallNanoseconds() - changed < finestTick;
    ReadAnew();
    // What could not be read, perhaps for want of something that is there again a moment later, is tried again.
    isFresh |= !readFailure.empty();
}

// A walk that followed such a link would never end.
bool Dir::IsLinkToAncestor(const Io::Listed &theName) const
{
    if (!theName.IsLink || theName.What != Io::Kind::Directory)
        return false;
    const Io::Identity target = Io::IdentityOf(PathOf(theName.Name));
    for (const Dir *dir = this; dir; dir = dir->Parent)
        if (dir->identity == target)
            return true;
    return false;
}

void Dir::ReadAnew()
{
    std::vector<Io::Listed> listed;
    readFailure.clear();
    try {
        Io::ReadDirectory(HostPath + (Parent ? "" : "/"), listed);
    } catch (const RuntimeFailure &failure) {
        readFailure = failure.What;
    }
    isReadable = readFailure.empty() || !listed.empty();
    ForgetListings();
    std::unordered_set<std::string_view> there;
    for (const Io::Listed &one : listed)
        there.insert(one.Name);
    bool areDirectoriesChanged = false;
    for (auto entry = entries.begin(); entry != entries.end();) {
        if (there.contains((*entry)->Name)) {
            ++entry;
            continue;
        }
        areDirectoriesChanged |= (*entry)->What == Io::Kind::Directory;
        entry = entries.erase(entry);
    }
    for (const Io::Listed &one : listed) {
        const auto same = entries.equal_range(std::string_view(one.Name));
        const auto known = std::find_if(same.first, same.second, [&](const auto &e) { return e->Name == one.Name; });
        if (known != same.second && (*known)->What == one.What && (*known)->IsLink == one.IsLink) {
            (*known)->IsHidden = one.IsHidden || one.Name.starts_with('.');
            continue;
        }
        areDirectoriesChanged |= one.What == Io::Kind::Directory;
        if (known != same.second) {
            areDirectoriesChanged |= (*known)->What == Io::Kind::Directory;
            entries.erase(known);
        }
        entries.insert(std::make_unique<Entry>(
            Entry{one.Name, one.What, one.IsLink, one.IsHidden || one.Name.starts_with('.'), IsLinkToAncestor(one)}));
    }
    if (areDirectoriesChanged)
        ForgetPlaces();
}

Entry *Dir::Find(std::string_view theName, Io::Kind theKind)
{
    const auto same = entries.equal_range(theName);
    Entry *Result = nullptr;
    for (auto entry = same.first; entry != same.second; ++entry) {
        if (theKind != Io::Kind::None && (*entry)->What != theKind)
            continue;
        if ((*entry)->Name == theName)
            return entry->get();
        if (!Result || (*entry)->Name < Result->Name)
            Result = entry->get();
    }
    // A directory that may be passed through but not listed, or not to its end, still answers for an exact name. Nobody
    // can tell whether there is one that differs in case.
    if (!Result && !readFailure.empty() && !theName.empty()) {
        const Io::Kind kind = Io::KindOf(PathOf(theName));
        if (kind == Io::Kind::None)
            Losses::Note({readFailure, HostPath + '/'});
        else if (theKind == Io::Kind::None || kind == theKind)
            Result = &Add(theName, kind);
    }
    return Result;
}

Dir *Dir::Enter(std::string_view theName)
{
    Entry *entry = Find(theName, Io::Kind::Directory);
    if (!entry)
        return nullptr;
    if (!entry->Sub || entry->Sub->isGone)
        entry->Sub = std::make_unique<Dir>(PathOf(entry->Name), this, entry->IsLink);
    entry->Sub->Recheck();
    if (!entry->Sub->isGone)
        return entry->Sub.get();
    Distrust();  // the subdirectory is no longer in here
    return nullptr;
}

Entry &Dir::Add(std::string_view theName, Io::Kind theKind)
{
    ForgetListings();
    NoteOwnChange();
    return **entries.insert(std::make_unique<Entry>(Entry{Text(theName), theKind, false, theName.starts_with('.')}));
}

void Dir::AddDraft(std::string_view theName)
{
    Add(theName, Io::Kind::File);
    drafts = draftRound;
}

bool Dir::HasDrafts() const
{
    return drafts == draftRound;
}

void EndDrafts()
{
    ++draftRound;
}

void Dir::Remove(const Entry &theEntry)
{
    ForgetListings();
    NoteOwnChange();
    const auto same = entries.equal_range(std::string_view(theEntry.Name));
    const auto found = std::find_if(same.first, same.second, [&](const auto &e) { return e.get() == &theEntry; });
    if (found != same.second)
        entries.erase(found);
}

Names Dir::Listing(Io::Kind theKind)
{
    Names &kept = theKind == Io::Kind::Directory ? directories : files;
    if (!kept) {
        std::vector<Text> names;
        for (const auto &entry : entries)
            // In a directory that can't be read, the entries are only the names that were asked for.
            if (isReadable && entry->What == theKind && !entry->IsLoop && !entry->IsHidden &&
                entry->Name.find('\\') == Text::npos)
                names.push_back(entry->Name);
        std::sort(names.begin(), names.end(), [](const Text &a, const Text &b) {
            const int order = Paths::CompareIgnoringCase(a, b);
            return order != 0 ? order < 0 : a < b;
        });
        kept = std::make_shared<const std::vector<Text>>(std::move(names));
    }
    return kept;
}

// The directory of a path that isn't among the places, by way of its parent. Only a path that ends in "." or ".." is
// normalized, because these can't be looked up as names.
static Dir *ResolveDir(std::string_view thePath)
{
    std::string_view path = thePath;
    while (path.size() > 3 && Paths::IsSeparator(path.back()))
        path.remove_suffix(1);
    if (path.size() <= 3)
        return FindRoot(path[0]);
    std::string_view name;
    Dir *const parent = FindParent(path, name);
    if (!name.empty())
        return parent ? parent->Enter(name) : nullptr;
    const Text normal = Paths::Normalize(Text(path));
    return FindDir(normal);
}

Dir *FindDir(std::string_view thePath)
{
    if (drivesOfPlaces != Paths::DriveChanges()) {
        ForgetPlaces();
        drivesOfPlaces = Paths::DriveChanges();
    }
    if (const auto known = places.find(thePath); known != places.end()) {
        Dir *const dir = known->second;
        // This may empty the places, but it never frees the directory itself.
        dir->Recheck();
        if (!dir->IsGone())
            return dir;
    }
    if (thePath.size() < 2 || thePath[1] != ':' || (thePath.size() > 2 && !Paths::IsSeparator(thePath[2])))
        return nullptr;
    // Each step of a path gets a place. The steps of a long path with many ".." would take much memory for nothing.
    constexpr std::size_t longestUsual = 256, longest = 4200;
    if (thePath.size() > longestUsual) {
        const Text normal = Paths::Normalize(Text(thePath));
        if (normal.size() > longest)
            return nullptr;
        if (normal.size() + 1 < thePath.size())
            return FindDir(normal);
    }
    Dir *const dir = ResolveDir(thePath);
    if (dir)
        places.insert_or_assign(Text(thePath), dir);
    return dir;
}

Dir *FindParent(std::string_view thePath, std::string_view &theName)
{
    std::size_t cut = thePath.size();
    while (cut > 0 && !Paths::IsSeparator(thePath[cut - 1]))
        --cut;
    theName = thePath.substr(cut);
    if (theName == "." || theName == "..")
        theName = {};
    return cut == 0 ? nullptr : FindDir(thePath.substr(0, cut));
}
}  // namespace DirectoryCache
