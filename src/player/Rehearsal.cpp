#include "player/Rehearsal.h"
#include "base/Failure.h"
#include "core/KeywordList.h"
#include "core/Utils.h"
#include "disk/DirectoryCache.h"
#include "disk/Io.h"
#include "disk/Losses.h"
#include "disk/Paths.h"
#include "engine/Route.h"
#include "player/Explain.h"
#include <map>

// The program's counts end here.
static constexpr std::int64_t filesAtMost = 32767;

Rehearsal::Rehearsal(const RunOptions &theOptions)
    : realProgram(Paths::ProgramHostDir()), realProject(realProgram + '/' + theOptions.Number), temp(theOptions.Site),
      options(theOptions)
{
    LinkProgramFiles();
    LinkStore();
    PrepareKeywords(theOptions);
    Paths::SetProgramDir(temp.Path());
    Files::SetStandIn(this);
    if (Io::KindOf(realProject) == Io::Kind::Directory) {
        Io::MakeDirectory(temp.PathOf(options.Number));
        TakeNewSite(temp.PathOf(options.Number));
    }
}

Rehearsal::~Rehearsal()
{
    Files::SetStandIn(nullptr);
}

static std::vector<Io::Listed> NamesIn(const Text &theDir)
{
    std::vector<Io::Listed> Result;
    try {
        Io::ReadDirectory(theDir, Result);
    } catch (const RuntimeFailure &failure) {
        Losses::Note(failure);
    }
    return Result;
}

// All but the project's own two directories. The program writes through none of these links: it replaces a link to a
// file, and refuses to write below a link to a directory.
void Rehearsal::LinkProgramFiles() const
{
    for (const Io::Listed &one : NamesIn(realProgram + '/'))
        if (one.Name != options.Number && one.Name != options.Number + "_store")
            Host::MakeLink(realProgram + '/' + one.Name, temp.PathOf(one.Name));
}

// Pages of an earlier report are left out: whether a report is there in the end tells whether one was made.
void Rehearsal::LinkStore() const
{
    const Text name = options.Number + "_store", real = realProgram + '/' + name;
    if (!options.HasStore)
        return;
    Io::MakeDirectory(temp.PathOf(name));
    for (const Io::Listed &one : NamesIn(real))
        if (one.What == Io::Kind::Directory)
            Io::MakeDirectory(temp.PathOf(name + '/' + one.Name));
        else if (!one.Name.ends_with(".html"))
            Host::MakeLink(real + '/' + one.Name, temp.PathOf(name + '/' + one.Name));
}

// Makes the directories of the new site in theDir, which is empty, and lets the program know its files by their names.
void Rehearsal::TakeNewSite(const Text &theDir)
{
    const Text real = RealPath(theDir);
    if (!Io::CanWriteIn(real))
        closed.insert(theDir);
    const std::vector<Io::Listed> names = NamesIn(real);
    for (const Io::Listed &one : names)
        if (one.What == Io::Kind::Directory && !one.IsLink)
            Io::MakeDirectory(theDir + '/' + one.Name);
        else if (one.What != Io::Kind::File)
            Host::MakeLink(real + '/' + one.Name, theDir + '/' + one.Name);
    DirectoryCache::Dir *const dir = DirectoryCache::FindDir(Paths::FromHost(theDir));
    if (!dir)
        Fail("path not found", theDir);
    for (const Io::Listed &one : names)
        if (one.What == Io::Kind::File) {
            dir->AddDraft(one.Name);
            files.try_emplace(theDir + '/' + one.Name);
        }
    for (const Io::Listed &one : names)
        if (one.What == Io::Kind::Directory && !one.IsLink && one.Name.find('\\') == Text::npos)
            TakeNewSite(theDir + '/' + one.Name);
}

// What is wrong with the keywords is told beside the rehearsal; it shall not end at the first link because of them.
void Rehearsal::PrepareKeywords(const RunOptions &theOptions)
{
    if (TooFewKeywords(theOptions).empty())
        return;
    if (options.KeywordRows.empty())
        options.KeywordRows = {{1, "keyword"}};
    if (!options.UsesQuillmark)
        options.PerName = SureKeywords(options.KeywordRows, theOptions.PerName);
    options.Keywords = temp.PathOf("keywords-of-the-rehearsal.txt");
    Text text;
    for (const Keyword &one : options.KeywordRows)
        text += one.Word + "\r\n";
    Io::Write(options.Keywords, text);
}

Text Rehearsal::RealPath(const Text &thePath) const
{
    return thePath.starts_with(temp.Path()) ? realProgram + thePath.substr(temp.Path().size()) : thePath;
}

Text Rehearsal::WithRealPaths(const Text &theWords) const
{
    return ReplaceText(
        ReplaceText(theWords, temp.Path(), realProgram), Paths::FromHost(temp.Path()), Paths::FromHost(realProgram));
}

Text Rehearsal::ClosedDirectoryOf(const Text &theFile) const
{
    const Text dir = Host::ParentOf(theFile);
    return dir.starts_with(realProgram) && closed.contains(temp.Path() + dir.substr(realProgram.size())) ? dir : Text();
}

bool Rehearsal::IsInNewSite(const Text &theFile) const
{
    return theFile.starts_with(temp.PathOf(options.Number) + '/');
}

// Fails where the system would refuse to make theFile.
void Rehearsal::RequireRoom(const Text &theFile) const
{
    const std::size_t slash = theFile.rfind('/');
    if (theFile.size() - slash - 1 > Host::LongestName(realProgram + '/') ||
        RealPath(theFile).size() > Host::LongestPath())
        Fail(NameTooLong(), theFile);
    if (closed.contains(theFile.substr(0, slash)))
        Fail("Permission denied", theFile);
}

void Rehearsal::Note(const Text &theFile, std::int64_t theSize)
{
    RequireRoom(theFile);
    const auto [known, isNew] = files.try_emplace(theFile);
    NewFile &file = known->second;
    if (!file.IsWritten) {
        file.IsWritten = true;
        ++written;
        if (!isNew) {
            ++replaced;
            replacedBytes += std::max<std::int64_t>(0, Io::LookAtFile(RealPath(theFile)).Size);
        }
    }
    bytes += theSize - file.Size;
    file.Size = theSize;
}

bool Rehearsal::TakesWrite(const Text &theFile, const Text &theContent)
{
    if (!IsInNewSite(theFile))
        return false;
    const Expectation route = ExpectedRoute(Paths::FromHost(theFile));
    Note(theFile, static_cast<std::int64_t>((route ? route.Apply(theContent) : theContent).size()));
    return true;
}

bool Rehearsal::TakesCopy(const Text &theSource, const Text &theFile)
{
    if (!IsInNewSite(theFile))
        return false;
    RequireRoom(theFile);
    if (!Host::CanRead(theSource))
        Fail("Permission denied", theSource);
    const Expectation route = ExpectedRoute(Paths::FromHost(theFile));
    const Text key = route.Argument + '\n' + theSource;
    auto known = copies.find(key);
    if (!route || known == copies.end()) {
        const std::int64_t size =
            route ? static_cast<std::int64_t>(route.Apply(Io::Read(theSource)).size()) : Io::LookAtFile(theSource).Size;
        known = copies.insert_or_assign(key, size).first;
    }
    Note(theFile, known->second);
    return true;
}

// A file that the run has written was counted as the pass at the end leaves it.
bool Rehearsal::TakesRewrite(const Text &theFile, const Expectation &theChange)
{
    const auto known = files.find(theFile);
    if (known == files.end())
        return false;
    if (!known->second.IsWritten) {
        RequireRoom(theFile);
        Note(theFile, static_cast<std::int64_t>(theChange.Apply(Io::Read(RealPath(theFile))).size()));
    }
    return true;
}

void Rehearsal::BeforeDirectory(const Text &theDir) const
{
    if (IsInNewSite(theDir))
        RequireRoom(theDir);
}

std::vector<Text> Rehearsal::OverfullDirectories() const
{
    std::map<Text, std::int64_t> counts;
    for (const auto &[file, facts] : files)
        if (const std::size_t slash = file.rfind('/'); file[slash + 1] != '.')
            ++counts[file.substr(0, slash)];
    std::vector<Text> Result;
    for (const auto &[dir, count] : counts)
        if (count > filesAtMost)
            Result.push_back(RealPath(dir));
    return Result;
}
