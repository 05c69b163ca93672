// The fixture of the tests of the disk: the site and a project directory, with short ways to name what is in it.
#pragma once
#include "TestSite.h"
#include "disk/DirectoryCache.h"
#include "disk/Losses.h"
#include "disk/PendingWrites.h"
#include <thread>

using namespace Files;
using namespace Paths;
using Pairs = std::vector<std::pair<Text, Text>>;

struct Host : TestSite {
    Host() { StartProject(); }
    // A path in the project's directory, and what the disk holds there.
    static Text In(const Text &theRest) { return ProgramDir() + "\\0001\\" + theRest; }
    Text Now(const Text &theFile) const { return OnDisk("0001/" + theFile); }
    static Text Joined(const Names &theNames)
    {
        Text Result;
        for (const Text &name : *theNames)
            Result.append(name).append(" ");
        return Result;
    }
    // Lets so much time pass that a directory isn't taken for one that is just being changed.
    static void Rest() { std::this_thread::sleep_for(std::chrono::milliseconds(70)); }
};
