// A program directory and a tiny site, in memory where the system has such a place, and the checks that both fuzz
// targets share: whatever the input, nothing but the project changes, and time grows with the input.
#pragma once
#include "core/AppVars.h"
#include "disk/DirectoryCache.h"
#include "disk/Files.h"
#include "disk/Paths.h"
#include "disk/PendingWrites.h"
#include "toolkit/QuietPresentation.h"
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

#define REQUIRE(theCondition)                                                                                          \
    ((theCondition) ? void() : (std::fprintf(stderr, "%s:%d: %s\n", __FILE__, __LINE__, #theCondition), std::abort()))

class Sandbox
{
public:
    const fs::path top = fs::path(fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path()) /
                         ("ferncastle-fuzz-" + std::to_string(getpid()));
    const fs::path program = top / "program", site = top / "site";

    Sandbox()
    {
        fs::create_directories(program / "0001");
        fs::create_directories(program / "0001_store");
        // The program alone changes these directories from now on, so none needs to be looked at twice.
        DirectoryCache::SetRecheckInterval(1 << 30);
        Paths::SetProgramDir(program.string());
        SetPresentation(&presentation);
    }
    ~Sandbox()
    {
        SetPresentation(nullptr);
        fs::remove_all(top);
    }
    static void Put(const fs::path &theFile, const Text &theContent)
    {
        fs::create_directories(theFile.parent_path());
        std::ofstream(theFile, std::ios::binary) << theContent;
    }
    // All files and directories that no run may change, with their sizes and times of change, which nothing can set.
    Text Facts() const
    {
        Text Result;
        for (auto entry = fs::recursive_directory_iterator(top); entry != fs::recursive_directory_iterator(); ++entry) {
            const Text name = entry->path().filename().string();
            const bool isInProgram = entry->path().parent_path() == program;
            if (isInProgram && name.starts_with("0001"))
                entry.disable_recursion_pending();
            if (isInProgram && (name.starts_with("0001") || name.ends_with(".sav")))
                continue;
            struct stat facts = {};
            lstat(entry->path().c_str(), &facts);
            Result += entry->path().string() + ' ' + std::to_string(facts.st_mode) + ' ' + std::to_string(facts.st_ino);
            if (name != "program")
                Result += ' ' + std::to_string(facts.st_size) + ' ' + std::to_string(facts.st_ctim.tv_sec) + '.' +
                          std::to_string(facts.st_ctim.tv_nsec);
            Result += '\n';
        }
        return Result;
    }
    // Runs theWork, which may fail as the program does, and checks what must hold afterwards. theSize is that of the
    // input; theWork returns how much more there was to do, such as records written.
    template <class Work> void Check(std::size_t theSize, Work &&theWork)
    {
        const Text known = Facts();
        Paths::MapDrive('x', site.string());  // makes the cache forget the paths it has been asked for
        const double start = ProcessorTime();
        std::size_t more = 0;
        try {
            theWork(more);
        } catch (const RuntimeFailure &) {
        } catch (const ProgramEnd &) {
        }
        PendingWrites::Flush();
        REQUIRE(ProcessorTime() - start < slowness * (0.3 + 6e-6 * static_cast<double>(theSize + more)));
        if (Empty(Paths::ProgramDir() + "\\0001") > 100)
            RemoveDirectories();
        Empty(Paths::ProgramDir() + "\\0001_store");
        REQUIRE(Facts() == known);
    }

private:
    // Without the fuzzer the targets run beside other tests, where the processor's caches are shared, and some inputs
    // are a megabyte; the sanitizers then cost far more than on the fuzzer's small pages.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    static constexpr double slowness = 20;
#elif defined(FERNCASTLE_FUZZ)
    static constexpr double slowness = 1;
#else
    static constexpr double slowness = 2;
#endif

    static double ProcessorTime()
    {
        timespec now = {};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
        return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
    }
    // Deletes the files of a directory and of those in it. Returns how many directories there are.
    static std::size_t Empty(const Text &theDir)
    {
        const Files::Names files = Files::FilesIn(theDir), directories = Files::DirectoriesIn(theDir);
        for (const Text &name : *files)
            if (!name.ends_with(".key"))
                Files::Delete(theDir + "\\" + name);
        std::size_t Result = directories->size();
        for (const Text &name : *directories)
            Result += Empty(theDir + "\\" + name);
        return Result;
    }
    // The program makes directories and deletes none, so each run would be slower than the last one.
    void RemoveDirectories()
    {
        // The times of the file system are coarse; the program must not take this change for one of its own.
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
        for (const auto &entry : fs::directory_iterator(program / "0001"))
            fs::remove_all(entry.path());
        DirectoryCache::SetRecheckInterval(0);
        REQUIRE(Files::DirectoriesIn(Paths::ProgramDir() + "\\0001")->empty());
        DirectoryCache::SetRecheckInterval(1 << 30);
    }

    QuietPresentation presentation;
};
