#include "disk/PendingWrites.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "disk/Writer.h"
#include <algorithm>
#include <unordered_map>
#include <utility>

namespace
{
// Shared by all copies of one source that will get the same content.
struct Recipe {
    Text Source;
    Expectation Change;
    std::int64_t Stamp = -1;      // of the source when Result was made
    Writer::Content Result = {};  // null when it isn't kept
};
std::unordered_map<Text, Recipe> recipes;  // by argument and source; a program has one change for each argument
std::size_t keptBytes = 0;                 // of all results
constexpr std::size_t keptAtMost = 12 << 20;
// Larger files are seldom pages, so rewriting them early would gain nothing.
constexpr std::int64_t expectedAtMost = 1 << 20;

// The copies that aren't confirmed, by directory and name.
using Copies = std::unordered_map<Text, const Recipe *>;
std::unordered_map<Text, Copies> copies;
// Text to be added, by file.
std::unordered_map<Text, Text> added;
constexpr std::size_t addedAtMost = 1 << 16;

Writer writer;
bool isWriterBusy = false;
std::int64_t givenBytes = 0, roomAtLastLook = 0;

std::pair<Text, Text> Split(const Text &theFile)
{
    const std::size_t slash = theFile.rfind('/');
    return {theFile.substr(0, slash), theFile.substr(slash + 1)};
}

// True if the writer can create the file later without a likely failure: the disk has plenty of room and the name isn't
// too long. Any other file is written at once, so that a failure is reported where the copy was requested.
bool CanWriteLater(const Text &theName, std::size_t theSize)
{
    if (theName.size() > 255)
        return false;
    const auto size = static_cast<std::int64_t>(theSize);
    if (givenBytes + size > roomAtLastLook) {
        const std::int64_t room = Io::FreeSpace(Paths::ProgramHostDir() + '/') / 2;
        givenBytes = 0;
        roomAtLastLook = std::min(room, std::int64_t{64} << 20);
        if (size > roomAtLastLook)
            return false;
    }
    givenBytes += size;
    return true;
}

void DropResults()
{
    for (auto &[key, recipe] : recipes)
        recipe.Result = nullptr;
    keptBytes = 0;
}

// What theExpectation makes of theSource as it is now.
const Recipe &UpToDateRecipe(const Text &theSource, const Expectation &theExpectation, std::int64_t theStamp)
{
    Recipe &Result = recipes.try_emplace(theExpectation.Argument + '\n' + theSource).first->second;
    if (Result.Result && Result.Stamp == theStamp && Result.Change == theExpectation)
        return Result;
    Writer::Content content = std::make_shared<const Text>(theExpectation.Apply(Io::Read(theSource)));
    if (keptBytes + content->size() > keptAtMost)
        DropResults();
    keptBytes += content->size();
    Result = {theSource, theExpectation, theStamp, std::move(content)};
    return Result;
}

void CompleteAdded(const Text &theFile)
{
    if (const auto found = added.find(theFile); found != added.end()) {
        const Text text = std::exchange(found->second, {});
        if (!text.empty())
            Io::Append(theFile, text);
    }
}

template <class Work> void NoteFailure(Work &&theWork)
{
    try {
        theWork();
    } catch (const RuntimeFailure &failure) {
        Losses::Note(failure);
    }
}
}  // namespace

namespace PendingWrites
{
bool AddCopy(const Text &theFile, const Text &theSource, const Expectation &theExpectation)
{
    const Io::FileFacts facts = Io::LookAtFile(theSource);
    if (facts.Size > expectedAtMost)
        return false;
    const Recipe &recipe = UpToDateRecipe(theSource, theExpectation, facts.Stamp);
    auto [directory, name] = Split(theFile);
    Io::Draft draft(theFile);
    if (CanWriteLater(name, recipe.Result->size())) {
        writer.Put(std::move(draft), recipe.Result);
        isWriterBusy = true;
    } else {
        draft.Write(*recipe.Result);
        draft.Publish();
    }
    copies[directory][std::move(name)] = &recipe;
    return true;
}

static const Recipe *FindRecipe(const Text &theFile)
{
    const auto [directory, name] = Split(theFile);
    const auto there = copies.find(directory);
    if (there == copies.end())
        return nullptr;
    const auto found = there->second.find(name);
    return found == there->second.end() ? nullptr : found->second;
}

const Text *SourceOf(const Text &theFile)
{
    const Recipe *recipe = copies.empty() ? nullptr : FindRecipe(theFile);
    return recipe ? &recipe->Source : nullptr;
}

void Forget(const Text &theFile)
{
    added.erase(theFile);
    if (copies.empty())
        return;
    const auto [directory, name] = Split(theFile);
    const auto there = copies.find(directory);
    if (there == copies.end())
        return;
    there->second.erase(name);
    if (there->second.empty())
        copies.erase(there);
}

bool Confirm(const Text &theFile, const Expectation &theChange)
{
    FinishWriting();
    const Recipe *recipe = copies.empty() ? nullptr : FindRecipe(theFile);
    if (!recipe || recipe->Change != theChange)
        return false;
    Forget(theFile);
    return true;
}

void AddText(const Text &theFile, const Text &theText)
{
    if (SourceOf(theFile))
        Complete(theFile);
    Text &text = added[theFile];
    text += theText;
    if (text.size() > addedAtMost)
        CompleteAdded(theFile);
}

const Text *AddedText(const Text &theFile)
{
    const auto found = added.find(theFile);
    return found == added.end() || found->second.empty() ? nullptr : &found->second;
}

void Complete(const Text &theFile)
{
    if (const Text *known = SourceOf(theFile)) {
        const Text source = *known;
        FinishWriting();
        Forget(theFile);
        Io::Copy(source, theFile);
    }
    CompleteAdded(theFile);
}

void FinishWriting()
{
    if (!std::exchange(isWriterBusy, false))
        return;
    for (const RuntimeFailure &failure : writer.Finish()) {
        Losses::Note(failure);
        Forget(failure.Where);
    }
    DirectoryCache::EndDrafts();
}

void Await(const Text &theFile)
{
    if (SourceOf(theFile))
        FinishWriting();
}

void Hurry()
{
    if (isWriterBusy)
        writer.Hurry();
}

void Flush()
{
    FinishWriting();
    const auto unconfirmed = std::exchange(copies, {});
    for (const auto &[directory, names] : unconfirmed)
        for (const auto &[name, recipe] : names)
            NoteFailure([&] { Io::Copy(recipe->Source, directory + '/' + name); });
    for (const auto &[file, text] : std::exchange(added, {}))
        if (!text.empty())
            NoteFailure([&] { Io::Append(file, text); });
    recipes.clear();
    keptBytes = 0;
    roomAtLastLook = 0;
}
}  // namespace PendingWrites
