#include "disk/PendingWrites.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "disk/Writer.h"
#include <algorithm>
#include <list>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace
{
struct Source;

// How copies of a source are changed. Shared by all copies that will get the same content.
struct Recipe {
    const Source *From;
    Expectation Change;
    std::int64_t Stamp = -1;      // of the source when Result was made
    Writer::Content Result = {};  // null when it isn't kept
};
struct Source {
    Text Path;
    Io::FileFacts Facts = {};
    std::int64_t LookedAt = -1;  // by DirectoryCache::Milliseconds
    // A source has few of them, since there is one for each depth of a copy's directory. Copies point to them.
    std::list<Recipe> Recipes = {};
};
std::unordered_map<Text, Source> sources;
std::size_t keptBytes = 0;  // of all results
constexpr std::size_t keptAtMost = 12 << 20;
// Larger files are seldom pages, so rewriting them early would gain nothing.
constexpr std::int64_t expectedAtMost = 1 << 20;

struct ViewHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view theText) const { return std::hash<std::string_view>()(theText); }
};
template <class Value> using ByName = std::unordered_map<Text, Value, ViewHash, std::equal_to<>>;
// The copies that aren't confirmed, by directory and name.
using Copies = ByName<const Recipe *>;
ByName<Copies> copies;
// Text to be added, by file.
std::unordered_map<Text, Text> added;
constexpr std::size_t addedAtMost = 1 << 16;

Writer writer;
bool hasDrafts = false;  // copies were made since FinishWriting
constexpr std::int64_t bytesBetweenLooks = 64 << 20;
std::int64_t givenBytes = 0;  // since the free space was looked at
bool hasRoom = false;

std::pair<std::string_view, std::string_view> Split(std::string_view theFile)
{
    const std::size_t slash = theFile.rfind('/');
    return {theFile.substr(0, slash), theFile.substr(slash + 1)};
}

// True if the writer can create the file later without a likely failure: another copy could be made in its directory,
// the disk has plenty of room and the name isn't too long. Any other file is written at once, so that a failure is
// reported where the copy was requested.
bool CanWriteLater(bool isProvenDirectory, std::string_view theName, std::size_t theSize)
{
    if (!isProvenDirectory || theName.size() > 255)
        return false;
    const auto size = static_cast<std::int64_t>(theSize);
    if (givenBytes + size > bytesBetweenLooks || !hasRoom) {
        // Others write too: pages of the site, pictures, other programs.
        hasRoom = Io::FreeSpace(Paths::ProgramHostDir() + '/') > 2 * bytesBetweenLooks;
        givenBytes = 0;
        if (!hasRoom)
            return false;
    }
    givenBytes += size;
    return true;
}

// Drops what a recipe has made, to make room. The writer may still hold it.
void DropResult(Recipe &theRecipe)
{
    if (theRecipe.Result)
        keptBytes -= theRecipe.Result->size();
    theRecipe.Result = nullptr;
}

void DropResults()
{
    for (auto &[path, source] : sources)
        for (Recipe &recipe : source.Recipes)
            DropResult(recipe);
}

// The file theSource as it was a moment ago.
Source &UpToDateSource(const Text &theSource)
{
    Source &Result = sources.try_emplace(theSource, Source{theSource}).first->second;
    if (!DirectoryCache::IsRecent(Result.LookedAt)) {
        Result.LookedAt = DirectoryCache::Milliseconds();
        Result.Facts = Io::LookAtFile(theSource);
    }
    return Result;
}

// What theExpectation makes of theSource as it is now.
const Recipe &UpToDateRecipe(Source &theSource, const Expectation &theExpectation)
{
    auto recipe = std::find_if(theSource.Recipes.begin(), theSource.Recipes.end(),
        [&](const Recipe &one) { return one.Change == theExpectation; });
    if (recipe == theSource.Recipes.end())
        recipe = theSource.Recipes.insert(recipe, {&theSource, theExpectation});
    if (recipe->Result && recipe->Stamp == theSource.Facts.Stamp)
        return *recipe;
    Writer::Content content = std::make_shared<const Text>(theExpectation.Apply(Io::Read(theSource.Path)));
    DropResult(*recipe);
    if (keptBytes + content->size() > keptAtMost)
        DropResults();
    keptBytes += content->size();
    recipe->Stamp = theSource.Facts.Stamp;
    recipe->Result = std::move(content);
    return *recipe;
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
    Source &source = UpToDateSource(theSource);
    if (source.Facts.Size > expectedAtMost)
        return false;
    const Recipe &recipe = UpToDateRecipe(source, theExpectation);
    const auto [directory, name] = Split(theFile);
    auto there = copies.find(directory);
    if (CanWriteLater(there != copies.end(), name, recipe.Result->size())) {
        writer.Put(theFile, recipe.Result);
    } else {
        Io::WriteNew(theFile, *recipe.Result);
    }
    hasDrafts = true;
    if (there == copies.end())
        there = copies.try_emplace(Text(directory)).first;
    there->second.insert_or_assign(Text(name), &recipe);
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
    return recipe ? &recipe->From->Path : nullptr;
}

void Forget(const Text &theFile)
{
    if (!added.empty())
        added.erase(theFile);
    const auto [directory, name] = Split(theFile);
    const auto there = copies.find(directory);
    if (there == copies.end())
        return;
    if (const auto found = there->second.find(name); found != there->second.end())
        there->second.erase(found);
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
    if (!std::exchange(hasDrafts, false))
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
    if (hasDrafts)
        writer.Hurry();
}

void Flush()
{
    FinishWriting();
    const auto unconfirmed = std::exchange(copies, {});
    for (const auto &[directory, names] : unconfirmed)
        for (const auto &[name, recipe] : names)
            NoteFailure([&] { Io::Copy(recipe->From->Path, directory + '/' + name); });
    for (const auto &[file, text] : std::exchange(added, {}))
        if (!text.empty())
            NoteFailure([&] { Io::Append(file, text); });
    sources.clear();
    keptBytes = 0;
    hasRoom = false;
}
}  // namespace PendingWrites
