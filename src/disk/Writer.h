// Writes new files in a second thread while the program goes on. The program itself has one thread. The second one uses
// nothing but the files that it is given.
#pragma once
#include "base/Failure.h"
#include "base/Text.h"
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

class Writer
{
public:
    using Content = std::shared_ptr<const Text>;

    Writer() = default;
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;
    ~Writer();

    // Hands over the path and the content of a new file, which is there when Finish returns. If the queue is full or no
    // thread can be started, the caller writes the file at once. Never fails: see Finish.
    void Put(Text theFile, Content theContent);
    // Has the other thread take up what is waiting, however little it is.
    void Hurry();
    // Waits until all files are written. Returns what could not be, and forgets it.
    std::vector<RuntimeFailure> Finish();

private:
    struct Job {
        Text File;
        Content Bytes;
    };
    bool HasThread();
    void Work();
    void Do(const Job &theJob, std::vector<RuntimeFailure> &theFailures);

    std::mutex lock;
    std::condition_variable hasWork, isDone;
    std::vector<Job> waiting;
    std::size_t bytes = 0;  // of all that is waiting or in hand
    bool isWanted = false, isInHand = false, isClosing = false, hasNoThread = false;
    std::vector<RuntimeFailure> failures;
    std::thread worker;
};
