// A cache of the host's directories. A directory is read once and kept while it is unchanged, so that a look-up costs a
// hash, not a scan. The program's own writes update the cache.
#pragma once
#include "disk/Io.h"
#include <memory>
#include <string_view>
#include <unordered_set>

namespace DirectoryCache
{
using Names = std::shared_ptr<const std::vector<Text>>;
class Dir;

struct Entry {
    Text Name;
    Io::Kind What;
    bool IsLink;
    bool IsHidden = false;
    bool IsLoop = false;            // a link to one of the directories above it
    std::unique_ptr<Dir> Sub = {};  // made when the directory is first entered
};

struct FoldHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view theName) const;
    std::size_t operator()(const std::unique_ptr<Entry> &theEntry) const { return (*this)(theEntry->Name); }
};
struct FoldEqual {
    using is_transparent = void;
    static std::string_view NameOf(std::string_view theName) { return theName; }
    static std::string_view NameOf(const std::unique_ptr<Entry> &theEntry) { return theEntry->Name; }
    static bool AreEqual(std::string_view a, std::string_view b);
    template <class A, class B> bool operator()(const A &a, const B &b) const { return AreEqual(NameOf(a), NameOf(b)); }
};

// A directory as it was when it was last read. A pointer to one, or to an entry of one, is good until the next call of
// FindDir or FindParent.
class Dir
{
public:
    Dir(Text theHostPath, Dir *theParent, bool isLink)
        : HostPath(std::move(theHostPath)), Parent(theParent), IsLink(isLink)
    {
    }

    const Text HostPath;  // without a final slash; empty for the host's root, C: for that of a drive
    Dir *const Parent;    // null for such a root
    const bool IsLink;    // it was reached by a symbolic link in Parent

    // The host's path of a name in it.
    Text PathOf(std::string_view theName) const { return HostPath + '/' + Text(theName); }
    // Reads the directory anew if it has changed; sets IsGone when it isn't there any more.
    void Recheck();
    bool IsGone() const { return isGone; }
    // The entry of that name: an exact match wins, else the first ascending. Null when there is none of that kind;
    // Kind::None asks for any kind.
    Entry *Find(std::string_view theName, Io::Kind theKind);
    // The subdirectory of that name; null when there is none.
    Dir *Enter(std::string_view theName);
    // Notes a file or directory that the program itself has made.
    Entry &Add(std::string_view theName, Io::Kind theKind);
    // Notes a file that the writer is about to make. Until EndDrafts the directory isn't looked at again, since it
    // changes all the time; then it is read anew.
    void AddDraft(std::string_view theName);
    bool HasDrafts() const;
    // Notes that the program itself has deleted it.
    void Remove(const Entry &theEntry);
    // Notes that the program itself has just changed something here, so that it isn't taken for somebody else's change.
    void NoteOwnChange();
    // Has the directory read anew at the next look-up.
    void Distrust() { isTrusted = false; }
    // The visible names of that kind, ascending ignoring case.
    Names Listing(Io::Kind theKind);
    // Why its names could not be read, or not all of them; empty when they could.
    const Text &ReadFailure() const { return readFailure; }

private:
    void ReadAnew();
    bool IsLinkToAncestor(const Io::Listed &theName) const;
    void ForgetListings() { files = directories = nullptr; }

    std::unordered_multiset<std::unique_ptr<Entry>, FoldHash, FoldEqual> entries;
    Names files, directories;
    bool isGone = false;
    bool isReadable = false;
    Text readFailure;
    unsigned drafts = 0;  // the round of drafts in which the writer was last handed a file of this directory
    bool isTrusted = false;
    bool isFresh = false;  // read so soon after its last change that another change could have the same time
    std::int64_t stamp = -1;
    Io::Identity identity = {};
    std::int64_t lastLook = 0;
    std::int64_t lastOwnChange = -1;  // by the wall clock
};

// The directory that a path of the program names; null when there is none.
Dir *FindDir(std::string_view thePath);
// Splits a path at its last separator and finds the directory before it, null when there is none; theName gets the
// last element, empty when the path ends in a separator or in ".." or ".".
Dir *FindParent(std::string_view thePath, std::string_view &theName);

// Notes that all files of AddDraft are there now, or have failed.
void EndDrafts();

// How long a directory is trusted before its time of change is looked at again, in milliseconds; 0 looks each time.
void SetRecheckInterval(int theMilliseconds);
// Whether that long hasn't passed since theTime, for facts of files; theTime is of Milliseconds, -1 for never.
bool IsRecent(std::int64_t theTime);
// A clock that only goes forward.
std::int64_t Milliseconds();
}  // namespace DirectoryCache
