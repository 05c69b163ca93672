// What only Windows has: names that it doesn't allow, hidden files, long paths, files that are locked, drive letters.
#include "disk/HostTest.h"
#include "disk/Io.h"
#include <windows.h>

namespace fs = std::filesystem;

namespace
{
// What goes wrong in theWork; empty when nothing does.
template <class Work> Text FailureOf(Work &&theWork)
{
    try {
        theWork();
    } catch (const RuntimeFailure &failure) {
        return failure.What;
    }
    return {};
}

HANDLE Open(const fs::path &theFile, DWORD theShare)
{
    return CreateFileW(theFile.c_str(), GENERIC_READ, theShare, nullptr, OPEN_EXISTING, 0, nullptr);
}
}  // namespace

TEST_F(Host, NamesThatWindowsHasOtherUsesForAreRefused)
{
    Put("a.htm", "a");
    PutAt(program / "0001/there.htm", "there");
    const Expectation late{[](const Text &theContent, const Text &) { return theContent + "!"; }};
    const Text signs = "Windows allows no file name with < > : \" | ? * or a control character",
               end = "Windows allows no file name that ends in a point or a blank",
               device = "Windows keeps this file name for a device";
    for (const auto &[name, reason] : Pairs{{"there.htm:stream", signs}, {"there.htm::$DATA", signs}, {"a?.htm", signs},
             {"a*.htm", signs}, {"<a>.htm", signs}, {"a|b.htm", signs}, {"a\"b.htm", signs}, {"a\tb.htm", signs},
             {"there.htm.", end}, {"there.htm ", end}, {"...", end}, {"aux", device}, {"NUL.htm", device},
             {"con .a.htm", device}, {"com1.htm", device}, {"Lpt\xc2\xb9.htm", device},
             {"latin \xfc.htm", "this file name isn't UTF-8"}, {Text(256, 'n'), "File name too long"}}) {
        EXPECT_EQ(FailureOf([&] { Write(In(name), "w"); }), reason) << name;
        EXPECT_EQ(FailureOf([&] { Append(In(name), "w"); }), reason) << name;
        EXPECT_EQ(FailureOf([&] { Copy("x:\\a.htm", In(name)); }), reason) << name;
        EXPECT_EQ(FailureOf([&] { Copy("x:\\a.htm", In(name), late); }), reason) << name;
        EXPECT_FALSE(MakeDirectory(In(name)) || IsDirectory(In(name)));
        EXPECT_EQ(FailureOf([&] { Read(In(name)); }), "file not found") << name;
        EXPECT_TRUE(Io::KindOf(HostForm(program / "0001") + '/' + name) == Io::Kind::None) << name;
    }
    PendingWrites::Flush();
    EXPECT_EQ(Joined(FilesIn(In(""))) + Now("there.htm"), "there.htm there");
    for (const Text name : {"auxiliary.htm", "com.htm", "com10.htm", "a.aux", "l\xc3\xa4nge.htm"})
        EXPECT_EQ(FailureOf([&] { Write(In(name), "w"); }), "") << name;
}

TEST_F(Host, HiddenFilesAreLeftOutButFound)
{
    for (const char *file : {"a.htm", "hidden.htm", "system.htm", ".dot.htm", "under/a.htm"})
        Put(file, file);
    SetFileAttributesW((site / "hidden.htm").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesW((site / "system.htm").c_str(), FILE_ATTRIBUTE_SYSTEM);
    SetFileAttributesW((site / "under").c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_EQ(Joined(FilesIn("x:\\")) + Joined(DirectoriesIn("x:\\")), "a.htm ");
    EXPECT_FALSE(IsFile("x:\\hidden.htm") || IsFile("x:\\system.htm") || IsFile("x:\\h*.htm"));
    EXPECT_EQ(Read("x:\\hidden.htm") + Read("x:\\under\\a.htm"), "hidden.htmunder/a.htm");
    SetFileAttributesW((site / "hidden.htm").c_str(), FILE_ATTRIBUTE_NORMAL);
    Rest();
    Put("b.htm");
    EXPECT_TRUE(IsFile("x:\\hidden.htm"));
}

TEST_F(Host, NamesAreUtf8AndPathsMayBeLong)
{
    for (const wchar_t *name : {L"gr\u00fcn.htm", L"\u65e5\u672c.htm", L"\U0001f33f.htm", L"lone \xd800.htm"})
        std::ofstream(site / name) << "there";
    EXPECT_EQ(Joined(FilesIn("x:\\")), "gr\xc3\xbcn.htm \xe6\x97\xa5\xe6\x9c\xac.htm \xf0\x9f\x8c\xbf.htm ");
    EXPECT_EQ(Read("x:\\GR\xc3\xbcN.htm") + Read("x:\\\xf0\x9f\x8c\xbf.htm"), "therethere");
    Text deep = In("");
    for (int i = 0; i < 5; ++i) {
        deep += Text(100, static_cast<char>('a' + i)) + '\\';
        ASSERT_TRUE(MakeDirectory(deep));
    }
    Put("a.htm", "a");
    Write(deep + "a.htm", "one");
    Append(deep + "a.htm", " and");
    Copy("x:\\a.htm", deep + "b.htm");
    EXPECT_EQ(Read(deep + "A.htm") + Joined(FilesIn(deep)), "one anda.htm b.htm ");
    // The library can't remove them.
    for (const char *file : {"a.htm", "b.htm"})
        Delete(deep + file);
    for (; deep != In(""); deep.resize(deep.size() - 101))
        EXPECT_TRUE(RemoveDirectoryW((L"\\\\?\\" + fs::path(deep).native()).c_str()));
}

TEST_F(Host, WhatOthersHaveOpenFailsWithThatReason)
{
    for (const char *file : {"locked.htm", "read.htm"})
        PutAt(program / "0001" / file, "old");
    const HANDLE locked = Open(program / "0001/locked.htm", 0), read = Open(program / "0001/read.htm", FILE_SHARE_READ);
    const Text reason = "another program has this file open";
    EXPECT_EQ(FailureOf([&] { Read(In("locked.htm")); }), reason);
    EXPECT_EQ(Read(In("read.htm")), "old");
    for (const char *file : {"locked.htm", "read.htm"}) {
        EXPECT_EQ(FailureOf([&] { Write(In(file), "new"); }), reason) << file;
        EXPECT_EQ(FailureOf([&] { Copy(In("read.htm"), In(file)); }), file == Text("read.htm") ? "" : reason) << file;
        EXPECT_EQ(FailureOf([&] { Delete(In(file)); }), reason) << file;
        EXPECT_EQ(FailureOf([&] { Append(In(file), "new"), PendingWrites::Flush(); }), "");
    }
    EXPECT_EQ(Losses::TakeNews().size(), 2u) << "each file once, since the reason is the same";
    for (const HANDLE handle : {locked, read})
        CloseHandle(handle);
    EXPECT_EQ(Now("locked.htm") + Now("read.htm") + Joined(FilesIn(In(""))), "oldoldlocked.htm read.htm ");
    Write(In("locked.htm"), "new");
    EXPECT_EQ(Now("locked.htm"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(program / "0001"), {}), 2) << "nothing is left behind";
}

TEST_F(Host, LettersAreThoseOfWindowsUnlessMapped)
{
    Put("a.htm", "a");
    const Text place = HostForm(site);
    EXPECT_EQ(DriveRoot('c') + DriveRoot('C'), "C:/C:/");
    EXPECT_EQ(place.substr(0, 3) + FromHost(place).substr(0, 3) + FromHost("C:/") + ToHost("c:\\"), "C:/c:\\c:\\C:/");
    EXPECT_TRUE(IsReallyInside("x:\\", "c:\\") && IsDirectory("c:\\windows") && !IsFile("c:\\a.htm"));
    for (char letter = 'a'; letter <= 'z'; ++letter)
        if (letter != 'x') {
            const bool isThere = (GetLogicalDrives() >> (letter - 'a') & 1) != 0;
            EXPECT_EQ(!DriveRoot(letter).empty(), isThere || letter == 'c') << letter;
        }
    MapDrive('C', place);
    EXPECT_TRUE(IsFile("c:\\a.htm") && !IsDirectory("c:\\windows"));
}
