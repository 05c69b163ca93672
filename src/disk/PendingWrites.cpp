#include "disk/PendingWrites.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "disk/Writer.h"
#include <algorithm>
#include <chrono>
#include <memory>
#include <unordered_map>
#include <utility>

namespace
{
struct Pending {
    Text CopyOf = {};  // the source of a copy whose bytes are missing
    Text Added = {};   // text that is missing at the end
    bool IsAtWriter = false;

    bool IsDone() const { return CopyOf.empty() && Added.empty(); }
};
std::unordered_map<Text, Pending> pending;
using Node = std::pair<const Text, Pending>;
std::vector<Node *> order;  // in which the files were asked for; they stay in the table until Flush comes to them

std::int64_t pendingBytes = 0, roomAtLastLook = 0;
std::vector<Text> failures;
Writer writer;
bool isWriterBusy = false;

// Larger files are copied at once: they are seldom pages, so nothing is won by waiting.
constexpr std::int64_t waitAtMost = 1 << 20;
constexpr std::size_t addedAtMost = 1 << 16;

Pending *Find(const Text &theFile)
{
    const auto found = pending.find(theFile);
    return found == pending.end() ? nullptr : &found->second;
}

Pending &Make(const Text &theFile)
{
    const auto [found, isNew] = pending.try_emplace(theFile);
    if (isNew)
        order.push_back(&*found);
    return found->second;
}

void Complete(const Text &theFile, Pending &thePending)
{
    if (const Text source = std::exchange(thePending.CopyOf, {}); !source.empty())
        Io::Copy(source, theFile);
    if (const Text text = std::exchange(thePending.Added, {}); !text.empty())
        Io::Append(theFile, text);
}

void FinishWriting()
{
    if (!std::exchange(isWriterBusy, false))
        return;
    for (const RuntimeFailure &failure : writer.Finish())
        failures.push_back("Unable to write file:\r\n" + Paths::FromHost(failure.Where) + "\r\n\r\n" + failure.What);
}
}  // namespace

namespace PendingWrites
{
void Flush(int theMilliseconds)
{
    using Clock = std::chrono::steady_clock;
    const auto until = Clock::now() + std::chrono::milliseconds(theMilliseconds);
    FinishWriting();
    // Taken first: telling of a failure may come back here.
    auto nodes = std::exchange(order, {});
    auto next = nodes.begin();
    while (next != nodes.end() && Clock::now() < until) {
        const auto node = pending.extract((*next++)->first);
        Pending what = node.mapped();
        if (what.IsDone())
            continue;
        const Text file = node.key(), source = what.CopyOf;
        try {
            ::Complete(file, what);
        } catch (const RuntimeFailure &failure) {
            const Text copied = source.empty() ? Text() : Paths::FromHost(source);
            failures.push_back("Unable to copy file:\r\n" + copied + "\r\nto file:\r\n" + Paths::FromHost(file) +
                               "\r\n\r\n" + failure.What);
        }
    }
    order.insert(order.begin(), next, nodes.end());
    if (order.empty())
        pendingBytes = roomAtLastLook = 0;
}

std::vector<Text> TakeFailures()
{
    return std::exchange(failures, {});
}

bool HasAny()
{
    return isWriterBusy || !order.empty();
}

Text BytesPath(const Text &theFile)
{
    const Pending *what = Find(theFile);
    return what && !what->CopyOf.empty() ? what->CopyOf : theFile;
}

bool IsCopy(const Text &theFile)
{
    const Pending *what = Find(theFile);
    return what && !what->CopyOf.empty();
}

bool MayWait(std::int64_t theSize)
{
    if (theSize > waitAtMost)
        return false;
    if (pendingBytes + theSize > roomAtLastLook) {
        const std::int64_t room = Io::FreeSpace(Paths::ProgramHostDir() + '/') / 2;
        if (pendingBytes + theSize > room)
            return false;
        roomAtLastLook = std::min(room, pendingBytes + (std::int64_t{64} << 20));
    }
    return true;
}

void AddCopy(const Text &theFile, const Text &theSource, std::int64_t theSize)
{
    Make(theFile).CopyOf = theSource;
    pendingBytes += theSize;
}

void AddText(const Text &theFile, const Text &theText)
{
    Pending &what = Make(theFile);
    if (!what.CopyOf.empty())
        ::Complete(theFile, what);
    what.Added += theText;
    if (what.Added.size() > addedAtMost)
        ::Complete(theFile, what);
}

const Text *AddedText(const Text &theFile)
{
    const Pending *what = Find(theFile);
    return what && !what->Added.empty() ? &what->Added : nullptr;
}

void WriteLater(const Text &theFile, Text theContent)
{
    if (static_cast<std::int64_t>(theContent.size()) > waitAtMost) {
        Forget(theFile);
        Io::Write(theFile, theContent);
        return;
    }
    Pending &what = Make(theFile);
    what.CopyOf.clear();
    what.Added.clear();
    what.IsAtWriter = isWriterBusy = true;
    writer.Put(theFile, std::move(theContent));
}

void Complete(const Text &theFile)
{
    if (Pending *what = Find(theFile))
        ::Complete(theFile, *what);
}

void AwaitWriter(const Text &theFile)
{
    if (Pending *what = Find(theFile); what && std::exchange(what->IsAtWriter, false))
        FinishWriting();
}

void Forget(const Text &theFile)
{
    if (Pending *what = Find(theFile)) {
        what->CopyOf.clear();
        what->Added.clear();
    }
}
}  // namespace PendingWrites
