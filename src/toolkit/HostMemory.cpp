#include "toolkit/HostMemory.h"
#include <algorithm>
#include <chrono>
#include <unordered_map>

namespace HostMemory
{
int RecheckMilliseconds = 20;

namespace
{
struct PlaceHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view thePath) const { return std::hash<std::string_view>()(thePath); }
};
// Directories by the very text that asked for them.
std::unordered_map<Text, Dir *, PlaceHash, std::equal_to<>> places;
std::unique_ptr<Dir> hostRoot;
// Directories that went and came back are remembered anew; outstanding copies may still name what was in the old ones.
std::vector<std::unique_ptr<Dir>> goneDirs;

std::int64_t Milliseconds()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

std::int64_t WallNanoseconds()
{
    using namespace std::chrono;
    return duration_cast<nanoseconds>(system_clock::now().time_since_epoch()).count();
}

bool IsSeparator(char theChar)
{
    return theChar == '\\' || theChar == '/';
}

// All drives hang on the host's one root, so that a directory reached by two drives is remembered once.
Dir *Root(char theLetter)
{
    const Text path = HostFiles::ToHost(Text{theLetter, ':', '\\'});
    if (path.empty())
        return nullptr;
    if (!hostRoot)
        hostRoot = std::make_unique<Dir>("", nullptr);
    hostRoot->Recheck();
    Dir *dir = hostRoot.get();
    for (std::size_t at = 1; dir && at < path.size();) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        dir = dir->Enter(path.substr(at, end - at));
        at = end + 1;
    }
    return dir;
}
}  // namespace

Text Entry::HostPath() const
{
    return In->PathOf(Name);
}

int CompareIgnoringCase(std::string_view a, std::string_view b)
{
    const std::size_t both = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < both; ++i) {
        const auto x = static_cast<unsigned char>(LowerChar(a[i])), y = static_cast<unsigned char>(LowerChar(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

std::size_t FoldHash::operator()(std::string_view theName) const
{
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const char c : theName)
        hash = (hash ^ static_cast<unsigned char>(LowerChar(c))) * 0x100000001b3u;
    return hash ^ (hash >> 32);
}

void Dir::Wrote()
{
    lastWrite = WallNanoseconds();
}

void Dir::Recheck()
{
    const std::int64_t now = Milliseconds();
    if (isTrusted && RecheckMilliseconds > 0 && now - lastLook < RecheckMilliseconds)
        return;
    lastLook = now;
    const auto [changed, id] = HostIo::LookAt(HostPath.empty() ? "/" : HostPath);
    // Another directory, or a link, in the place of this one is no longer this one.
    Gone = changed < 0 || (isTrusted && id != identity);
    identity = id;
    if (Gone) {
        ForgetPlaces();
        return;
    }
    // A change up to the program's own last one is taken for that.
    const bool isKnown = changed == stamp || changed <= lastWrite;
    stamp = changed;
    if (isTrusted && !isFresh && isKnown)
        return;
    isTrusted = true;
    isFresh = changed > lastWrite && WallNanoseconds() - changed < 50'000'000;
    ReadAnew();
}

// A walk would never come back from a link to one of the directories on the way to it.
bool Dir::HoldsItself(const HostIo::Listed &theName) const
{
    if (!theName.IsLink || theName.What != HostIo::Kind::Directory)
        return false;
    const HostIo::Identity target = HostIo::IdentityOf(PathOf(theName.Name));
    for (const Dir *dir = this; dir; dir = dir->Parent())
        if (dir->identity == target)
            return true;
    return false;
}

void Dir::ReadAnew()
{
    std::vector<HostIo::Listed> listed;
    isReadable = HostIo::ReadDirectory(HostPath.empty() ? "/" : HostPath, listed);
    ForgetListings();
    std::unordered_set<std::string_view> there;
    for (const HostIo::Listed &one : listed)
        there.insert(one.Name);
    bool placesChanged = false;
    for (auto entry = entries.begin(); entry != entries.end();) {
        if (there.contains((*entry)->Name)) {
            ++entry;
            continue;
        }
        placesChanged |= (*entry)->What == HostIo::Kind::Directory;
        Drop(std::move(entries.extract(entry++).value()));
    }
    for (HostIo::Listed &one : listed) {
        if (HoldsItself(one))
            one.What = HostIo::Kind::Other;
        const auto same = entries.equal_range(std::string_view(one.Name));
        const auto known = std::find_if(same.first, same.second, [&](const auto &e) { return e->Name == one.Name; });
        if (known != same.second && (*known)->What == one.What && (*known)->IsLink == one.IsLink)
            continue;
        placesChanged |= one.What == HostIo::Kind::Directory;
        if (known != same.second) {
            placesChanged |= (*known)->What == HostIo::Kind::Directory;
            Drop(std::move(entries.extract(known).value()));
        }
        entries.insert(std::make_unique<Entry>(Entry{one.Name, one.What, one.IsLink, this}));
    }
    if (placesChanged)
        ForgetPlaces();
}

void Dir::Drop(std::unique_ptr<Entry> theEntry)
{
    if (theEntry->Sub)
        theEntry->Sub->Gone = true;
    dropped.push_back(std::move(theEntry));
}

Entry *Dir::Find(std::string_view theName, HostIo::Kind theKind)
{
    const auto same = entries.equal_range(theName);
    Entry *Result = nullptr;
    for (auto entry = same.first; entry != same.second; ++entry) {
        if (theKind != HostIo::Kind::None && (*entry)->What != theKind)
            continue;
        if ((*entry)->Name == theName)
            return entry->get();
        if (!Result || (*entry)->Name < Result->Name)
            Result = entry->get();
    }
    // A directory that may be passed through but not listed still answers for an exact name.
    if (!Result && !isReadable && !theName.empty()) {
        const HostIo::Kind kind = HostIo::KindOf(PathOf(theName));
        if (kind != HostIo::Kind::None && (theKind == HostIo::Kind::None || kind == theKind))
            Result = &Add(theName, kind);
    }
    return Result;
}

Dir *Dir::Enter(std::string_view theName)
{
    Entry *entry = Find(theName, HostIo::Kind::Directory);
    if (!entry)
        return nullptr;
    if (entry->Sub && entry->Sub->Gone)
        goneDirs.push_back(std::move(entry->Sub));
    if (!entry->Sub)
        entry->Sub = std::make_unique<Dir>(entry->HostPath(), entry);
    entry->Sub->Recheck();
    if (!entry->Sub->Gone)
        return entry->Sub.get();
    ReadAgain();  // it is no longer in here
    return nullptr;
}

Entry &Dir::Add(std::string_view theName, HostIo::Kind theKind)
{
    ForgetListings();
    Wrote();
    return **entries.insert(std::make_unique<Entry>(Entry{Text(theName), theKind, false, this}));
}

void Dir::Remove(Entry &theEntry)
{
    ForgetListings();
    Wrote();
    const auto same = entries.equal_range(std::string_view(theEntry.Name));
    for (auto entry = same.first; entry != same.second; ++entry)
        if (entry->get() == &theEntry) {
            Drop(std::move(entries.extract(entry).value()));
            return;
        }
}

HostFiles::Names Dir::Listing(HostIo::Kind theKind)
{
    HostFiles::Names &kept = theKind == HostIo::Kind::Directory ? directories : files;
    if (!kept) {
        std::vector<Text> names;
        for (const auto &entry : entries)
            // Where names may not be read, those that were asked for are no listing.
            if (isReadable && entry->What == theKind && entry->Name[0] != '.' && entry->Name.find('\\') == Text::npos)
                names.push_back(entry->Name);
        std::sort(names.begin(), names.end(), [](const Text &a, const Text &b) {
            const int order = CompareIgnoringCase(a, b);
            return order != 0 ? order < 0 : a < b;
        });
        kept = std::make_shared<const std::vector<Text>>(std::move(names));
    }
    return kept;
}

// The directory before the last element of thePath, found by what is known of it; the whole path is taken apart only
// where it has nothing to it that can be looked up.
static Dir *ResolveDir(std::string_view thePath)
{
    std::string_view path = thePath;
    while (path.size() > 3 && IsSeparator(path.back()))
        path.remove_suffix(1);
    if (path.size() <= 3)
        return Root(path[0]);
    std::string_view name;
    Dir *const parent = FindParent(path, name);
    if (!name.empty())
        return parent ? parent->Enter(name) : nullptr;
    // It ends in "." or "..": only the text can tell what that takes back.
    const Text plain = HostFiles::Plain(Text(path));
    return FindDir(plain);
}

Dir *FindDir(std::string_view thePath)
{
    if (const auto known = places.find(thePath); known != places.end()) {
        Dir *const dir = known->second;
        dir->Recheck();
        // The look may have emptied the places, but never frees a directory.
        if (!dir->Gone)
            return dir;
    }
    if (thePath.size() < 2 || thePath[1] != ':' || (thePath.size() > 2 && !IsSeparator(thePath[2])))
        return nullptr;
    Dir *const dir = ResolveDir(thePath);
    if (dir)
        places.insert_or_assign(Text(thePath), dir);
    return dir;
}

Dir *FindParent(std::string_view thePath, std::string_view &theName)
{
    std::size_t cut = thePath.size();
    while (cut > 0 && !IsSeparator(thePath[cut - 1]))
        --cut;
    theName = thePath.substr(cut);
    if (theName == "." || theName == "..")
        theName = {};
    return cut == 0 ? nullptr : FindDir(thePath.substr(0, cut));
}

void ForgetPlaces()
{
    places.clear();
}

void ForgetAll()
{
    places.clear();
    hostRoot.reset();
    goneDirs.clear();
}
}  // namespace HostMemory
