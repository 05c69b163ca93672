#include "disk/Writer.h"
#include "disk/Io.h"
#include <utility>

// Files are taken up in batches: waking the other side for each would cost as much as writing it.
static constexpr std::size_t batchAtLeast = 32;
static constexpr std::size_t bytesAtMost = 8 << 20;

Writer::~Writer()
{
    {
        const std::lock_guard guard(lock);
        isClosing = true;
    }
    hasWork.notify_one();
    if (worker.joinable())
        worker.join();
}

void Writer::Put(Text theFile, Text theContent)
{
    std::unique_lock guard(lock);
    if (!worker.joinable())
        worker = std::thread(&Writer::Work, this);
    bytes += theContent.size();
    waiting.emplace_back(std::move(theFile), std::move(theContent));
    if (waiting.size() < batchAtLeast && bytes < bytesAtMost)
        return;
    isWanted = true;
    hasWork.notify_one();
    hasRoom.wait(guard, [this] { return bytes < bytesAtMost; });
}

std::vector<RuntimeFailure> Writer::Finish()
{
    std::unique_lock guard(lock);
    isWanted = true;
    hasWork.notify_one();
    hasRoom.wait(guard, [this] { return waiting.empty() && !isInHand; });
    return std::exchange(failures, {});
}

void Writer::Work()
{
    std::unique_lock guard(lock);
    for (;;) {
        hasWork.wait(guard, [this] { return (isWanted && !waiting.empty()) || isClosing; });
        if (waiting.empty())
            return;
        const auto batch = std::exchange(waiting, {});
        isWanted = false;
        isInHand = true;
        guard.unlock();
        std::size_t written = 0;
        std::vector<RuntimeFailure> failed;
        for (const auto &[file, content] : batch) {
            written += content.size();
            try {
                Io::Write(file, content);
            } catch (const RuntimeFailure &failure) {
                failed.push_back(failure);
            }
        }
        guard.lock();
        failures.insert(failures.end(), failed.begin(), failed.end());
        isInHand = false;
        bytes -= written;
        hasRoom.notify_one();
    }
}
