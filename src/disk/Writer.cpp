#include "disk/Writer.h"
#include "disk/Io.h"
#include <new>
#include <system_error>
#include <utility>

// The files are taken up in batches: waking the other thread for each would cost as much as writing it.
static constexpr std::size_t batch = 8;
// When the queue is full, the caller writes too, so both threads are busy until the end.
static constexpr std::size_t filesAtMost = 64;
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

void Writer::Do(const Job &theJob, std::vector<RuntimeFailure> &theFailures)
{
    try {
        Io::WriteNew(theJob.File, *theJob.Bytes);
    } catch (const RuntimeFailure &failure) {
        theFailures.push_back(failure);
    } catch (const std::bad_alloc &) {
        theFailures.push_back({"not enough memory", theJob.File});
    }
}

void Writer::Put(Text theFile, Content theContent)
{
    Job job{std::move(theFile), std::move(theContent)};
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
            for (const Job &job : jobs) {
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
