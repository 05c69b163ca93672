// Writes whole files beside the program's own work, in the order in which they were handed over. The program itself has
// one thread; this is the only other one, and it touches nothing but the files.
#pragma once
#include "base/Failure.h"
#include <condition_variable>
#include <mutex>
#include <thread>
#include <vector>

class Writer
{
public:
    Writer() = default;
    Writer(const Writer &) = delete;
    Writer &operator=(const Writer &) = delete;
    ~Writer();

    // Hands over a file of the host to be written, before Finish at the latest; waits while too much is waiting
    // already.
    void Put(Text theFile, Text theContent);
    // Waits until all is written. Returns what could not be, and forgets it.
    std::vector<RuntimeFailure> Finish();

private:
    void Work();

    std::mutex lock;
    std::condition_variable hasWork, hasRoom;
    std::vector<std::pair<Text, Text>> waiting;
    std::size_t bytes = 0;  // of all that is waiting or in hand
    bool isWanted = false, isInHand = false, isClosing = false;
    std::vector<RuntimeFailure> failures;
    std::thread worker;
};
