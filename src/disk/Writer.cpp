#include "disk/Writer.h"
#include <system_error>
#include <utility>

// The files are taken up in batches: waking the other thread for each would cost as much as writing it.
static constexpr std::size_t batch = 8;
// Each file in the queue is open.
static constexpr std::size_t filesAtMost = 48;
static constexpr std::size_t bytesAtMost = 4 << 20;

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

bool Writer::HasThread()
{
    if (!worker.joinable() && !hasNoThread)
        try {
            worker = std::thread(&Writer::Work, this);
        } catch (const std::system_error &) {
            hasNoThread = true;
        }
    return !hasNoThread;
}

void Writer::Do(Job &theJob, std::vector<RuntimeFailure> &theFailures)
{
    try {
        theJob.File.Write(*theJob.Bytes);
        theJob.File.Publish();
    } catch (const RuntimeFailure &failure) {
        theFailures.push_back(failure);
    }
}

void Writer::Put(Io::Draft theDraft, Content theContent)
{
    Job job{std::move(theDraft), std::move(theContent)};
    std::unique_lock guard(lock);
    if (waiting.size() >= filesAtMost || bytes + job.Bytes->size() > bytesAtMost || !HasThread()) {
        guard.unlock();
        std::vector<RuntimeFailure> failed;
        Do(job, failed);
        guard.lock();
        failures.insert(failures.end(), failed.begin(), failed.end());
        return;
    }
    bytes += job.Bytes->size();
    waiting.push_back(std::move(job));
    if (waiting.size() < batch || isInHand)
        return;
    isWanted = true;
    hasWork.notify_one();
}

void Writer::Hurry()
{
    {
        const std::lock_guard guard(lock);
        isWanted = true;
    }
    hasWork.notify_one();
}

std::vector<RuntimeFailure> Writer::Finish()
{
    Hurry();
    std::unique_lock guard(lock);
    isDone.wait(guard, [this] { return waiting.empty() && !isInHand; });
    isWanted = false;
    return std::exchange(failures, {});
}

void Writer::Work()
{
    std::unique_lock guard(lock);
    for (;;) {
        hasWork.wait(guard, [this] { return (isWanted && !waiting.empty()) || isClosing; });
        if (waiting.empty())
            return;
        isWanted = false;
        isInHand = true;
        // Goes on while there is work, so that it is woken once for many files.
        while (!waiting.empty()) {
            auto jobs = std::exchange(waiting, {});
            std::size_t written = 0;
            std::vector<RuntimeFailure> failed;
            guard.unlock();
            for (Job &job : jobs) {
                written += job.Bytes->size();
                Do(job, failed);
            }
            jobs.clear();
            guard.lock();
            failures.insert(failures.end(), failed.begin(), failed.end());
            bytes -= written;
        }
        isInHand = false;
        isDone.notify_one();
    }
}
