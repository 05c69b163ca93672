#include "toolkit/HostWriter.h"
#include "toolkit/HostIo.h"
#include <utility>

static constexpr std::size_t bytesAtMost = 8 << 20;

HostWriter::~HostWriter()
{
    {
        const std::lock_guard guard(lock);
        isClosing = true;
    }
    hasWork.notify_one();
    if (worker.joinable())
        worker.join();
}

void HostWriter::Put(Text theFile, Text theContent)
{
    std::unique_lock guard(lock);
    if (!worker.joinable())
        worker = std::thread(&HostWriter::Work, this);
    hasRoom.wait(guard, [this] { return bytes < bytesAtMost; });
    bytes += theContent.size();
    waiting.emplace_back(std::move(theFile), std::move(theContent));
    hasWork.notify_one();
}

std::vector<RuntimeFailure> HostWriter::Finish()
{
    std::unique_lock guard(lock);
    hasRoom.wait(guard, [this] { return waiting.empty() && !isInHand; });
    return std::exchange(failures, {});
}

void HostWriter::Work()
{
    std::unique_lock guard(lock);
    for (;;) {
        hasWork.wait(guard, [this] { return !waiting.empty() || isClosing; });
        if (waiting.empty())
            return;
        const auto [file, content] = std::move(waiting.front());
        waiting.pop_front();
        isInHand = true;
        guard.unlock();
        std::vector<RuntimeFailure> failed;
        try {
            HostIo::Write(file, content);
        } catch (const RuntimeFailure &failure) {
            failed.push_back(failure);
        }
        guard.lock();
        failures.insert(failures.end(), failed.begin(), failed.end());
        isInHand = false;
        bytes -= content.size();
        hasRoom.notify_one();
    }
}
