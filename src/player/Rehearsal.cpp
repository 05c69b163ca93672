#include "player/Rehearsal.h"
#include "base/Failure.h"
#include "core/RandomBas.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "engine/Route.h"
#include "player/KeywordList.h"
#include <map>

// The program's counts end here.
static constexpr std::int64_t filesAtMost = 32767;
static constexpr std::size_t longestName = 255;
// The rehearsed project is always the first one of its program directory.
static const Text number = "0001";

// The number that the wizard gives to the project.
static Text ProjectOf(const RunOptions &theOptions)
{
    Text Result = theOptions.Project.empty() ? number : theOptions.Project;
    for (int i = 2; theOptions.Project.empty() && Host::IsDirectory(Paths::ProgramHostDir() + '/' + Result); ++i)
        Result = PadNumberLeft(i, 4);
    return Result;
}

Rehearsal::Rehearsal(const RunOptions &theOptions)
    : realProgram(Paths::ProgramHostDir()), realProject(realProgram + '/' + ProjectOf(theOptions)),
      temp(theOptions.Site), options(theOptions)
{
    LinkProgramFiles();
    PrepareKeywords(theOptions);
    options.Project.clear();
    options.HadQuillmark = false;
    if (const Text filters = realProject + "_store/filters.lst"; Host::CanRead(filters)) {
        const Text store = temp.PathOf(number + "_store");
        if (!Host::MakeDirectory(store) || !Host::CopyFile(filters, store + "/filters.lst"))
            Fail("cannot copy", filters);
    }
    Paths::SetProgramDir(temp.Path());
    Files::SetStandIn(this);
}

Rehearsal::~Rehearsal()
{
    Files::SetStandIn(nullptr);
}

// All but projects and saved files, which a run writes.
void Rehearsal::LinkProgramFiles() const
{
    for (const Text &name : Host::NamesIn(realProgram + '/')) {
        const bool isWritten = Files::IsSavedFile(name) || Files::IsProjectDirectory(name);
        if (!isWritten && !Host::MakeLink(realProgram + '/' + name, temp.PathOf(name)))
            Fail("cannot make a link", temp.PathOf(name));
    }
}

// What is wrong with the keywords is told beside the rehearsal; it shall not end at the first link because of them.
void Rehearsal::PrepareKeywords(const RunOptions &theOptions)
{
    if (options.KeywordRows.empty())
        options.KeywordRows = {{1, "keyword"}};
    if (!options.UsesQuillmark)
        options.PerName = SureKeywords(options.KeywordRows, theOptions.PerName);
    options.Keywords = temp.PathOf("keywords-of-the-rehearsal.txt");
    Text text;
    for (const Keyword &one : options.KeywordRows)
        text += one.Word + "\r\n";
    if (!Host::WriteFile(options.Keywords, text))
        Fail("cannot write", options.Keywords);
}

Text Rehearsal::RealPath(const Text &thePath) const
{
    if (!thePath.starts_with(temp.Path()))
        return thePath;
    const Text rest = thePath.substr(temp.Path().size());
    return rest.starts_with('/' + number) ? realProject + rest.substr(number.size() + 1) : realProgram + rest;
}

bool Rehearsal::IsInNewSite(const Text &theFile) const
{
    return theFile.starts_with(temp.PathOf(number) + '/');
}

void Rehearsal::Note(const Text &theFile, std::int64_t theSize)
{
    if (theFile.size() - theFile.rfind('/') - 1 > longestName)
        Fail("File name too long", theFile);
    std::int64_t &size = sizes[theFile];
    bytes += theSize - size;
    size = theSize;
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

std::vector<Text> Rehearsal::OverfullDirectories() const
{
    std::map<Text, std::int64_t> counts;
    for (const auto &[file, size] : sizes)
        ++counts[file.substr(0, file.rfind('/'))];
    std::vector<Text> Result;
    for (auto &[dir, count] : counts) {
        const Text real = RealPath(dir);
        for (const Text &name : Host::NamesIn(real))
            count += sizes.contains(dir + '/' + name) ? 0 : 1;
        if (count > filesAtMost)
            Result.push_back(real);
    }
    return Result;
}
