#include "disk/Losses.h"
#include "disk/Paths.h"
#include <unordered_map>

namespace
{
std::vector<Losses::Loss> losses;
std::unordered_map<Text, std::size_t> places;  // in losses, by file and reason
std::size_t untold = 0;
// Whether theWords name theFile: as a whole, not as the beginning of a longer path.
bool AreAbout(const Text &theWords, const Text &theFile)
{
    for (std::size_t at = 0; !theFile.empty() && (at = theWords.find(theFile, at)) != Text::npos; ++at)
        if (const std::size_t end = at + theFile.size();
            end == theWords.size() || theWords.find_first_of("\r\n\"", end) == end)
            return true;
    return false;
}
}  // namespace

namespace Losses
{
void Note(const RuntimeFailure &theFailure)
{
    const Text file = Paths::IsHostPath(theFailure.Where) ? Paths::FromHost(theFailure.Where) : theFailure.Where;
    const auto [known, isNew] = places.try_emplace(file + '\n' + theFailure.What, losses.size());
    if (!isNew) {
        ++losses[known->second].Times;
        return;
    }
    losses.push_back({file, theFailure.What});
    ++untold;
}

void MarkTold(const Text &theWords)
{
    if (untold == 0)
        return;
    const Text words = Paths::IsHostPath(theWords) ? Paths::FromHost(theWords) : theWords;
    for (Loss &loss : losses)
        if (!loss.IsTold && AreAbout(words, loss.File)) {
            loss.IsTold = true;
            --untold;
        }
}

const std::vector<Loss> &All()
{
    return losses;
}

bool HasNews()
{
    return untold > 0;
}

std::vector<Loss> TakeNews()
{
    std::vector<Loss> Result;
    for (Loss &loss : losses)
        if (!loss.IsTold) {
            loss.IsTold = true;
            Result.push_back(loss);
        }
    untold = 0;
    return Result;
}
}  // namespace Losses
