// What the program remembers of the host's directories; HostFiles.cpp is its only user.
#pragma once
#include "toolkit/HostFiles.h"
#include "toolkit/HostIo.h"
#include <string_view>
#include <unordered_set>

namespace HostMemory
{
extern int RecheckMilliseconds;
struct Dir;

struct Entry {
    Text Name;
    HostIo::Kind What;
    bool IsLink;
    Dir *In;
    std::unique_ptr<Dir> Sub = {};         // made when it is first entered
    const Entry *CopyOf = nullptr;         // a copy whose bytes are outstanding; its file is there, empty
    std::unique_ptr<Text> Unwritten = {};  // added text not yet on the disk
    bool IsBeingWritten = false;           // handed to the writer
    std::int64_t Size = -1;                // of a file that could be read, once a copy of it was asked for

    Text HostPath() const;
    // Where its bytes are to be read: of an outstanding copy its source.
    Text BytesPath() const { return CopyOf ? CopyOf->HostPath() : HostPath(); }
};

int CompareIgnoringCase(std::string_view a, std::string_view b);

struct FoldHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view theName) const;
    std::size_t operator()(const std::unique_ptr<Entry> &theEntry) const { return (*this)(theEntry->Name); }
};
struct FoldEqual {
    using is_transparent = void;
    static std::string_view Of(std::string_view theName) { return theName; }
    static std::string_view Of(const std::unique_ptr<Entry> &theEntry) { return theEntry->Name; }
    template <class A, class B> bool operator()(const A &a, const B &b) const
    {
        return CompareIgnoringCase(Of(a), Of(b)) == 0;
    }
};

struct Dir {
    Dir(Text theHostPath, Entry *theSelf) : HostPath(std::move(theHostPath)), Self(theSelf) {}

    const Text HostPath;  // without a final slash; empty for the host's root
    Entry *const Self;    // null for the host's root
    bool Gone = false;

    // The host's path of a name in it.
    Text PathOf(std::string_view theName) const { return HostPath + '/' + Text(theName); }
    Dir *Parent() const { return Self ? Self->In : nullptr; }
    // Reads the directory anew if it changed; sets Gone when it isn't there any more.
    void Recheck();
    // The entry of that name: an exact match wins, else the first ascending. Null when there is none of that kind;
    // Kind::None asks for any kind.
    Entry *Find(std::string_view theName, HostIo::Kind theKind);
    // The subdirectory of that name, null when there is none.
    Dir *Enter(std::string_view theName);
    // Notes a file or directory that the program itself made.
    Entry &Add(std::string_view theName, HostIo::Kind theKind);
    // Notes that the program itself deleted it.
    void Remove(Entry &theEntry);
    // Reads the directory anew at the next look-up.
    void ReadAgain() { isTrusted = false; }
    HostFiles::Names Listing(HostIo::Kind theKind);

private:
    void ReadAnew();
    bool HoldsItself(const HostIo::Listed &theName) const;
    void Drop(std::unique_ptr<Entry> theEntry);
    // Notes that the program itself changed the names here, so that it isn't taken for somebody else's doing.
    void Wrote();
    void ForgetListings() { files = directories = nullptr; }

    std::unordered_multiset<std::unique_ptr<Entry>, FoldHash, FoldEqual> entries;
    // Entries that are gone are kept, since outstanding copies may still name them.
    std::vector<std::unique_ptr<Entry>> dropped;
    HostFiles::Names files, directories;
    bool isReadable = false;
    bool isTrusted = false;
    bool isFresh = false;  // read so soon after its last change that another one could bear the same time
    std::int64_t stamp = -1;
    HostIo::Identity identity = {};
    std::int64_t lastLook = 0;
    std::int64_t lastWrite = -1;  // by the program itself, by the wall clock
};

// The directory that a path of the program names; null when there is none.
Dir *FindDir(std::string_view thePath);
// Parts a path at its last separator and finds the directory before it, null when there is none; theName gets the
// last element, empty when the path ends in a separator or in ".." or ".".
Dir *FindParent(std::string_view thePath, std::string_view &theName);
// Forgets the directories' places, after a change among directories.
void ForgetPlaces();
// Forgets everything; nothing may be outstanding.
void ForgetAll();
}  // namespace HostMemory
