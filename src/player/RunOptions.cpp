#include "player/RunOptions.h"
#include "base/Failure.h"
#include "core/AppVars.h"
#include "core/FileHandle.h"
#include "core/KeywordList.h"
#include "core/RandomBas.h"
#include "core/TextOps.h"
#include "core/Utils.h"
#include "disk/Claim.h"
#include "disk/Files.h"
#include "disk/Io.h"
#include "disk/Paths.h"
#include "player/Host.h"
#include "toolkit/Gates.h"
#include "toolkit/Services.h"
#include <algorithm>
#include <iostream>
#include <utility>

static std::optional<std::int64_t> seed;

Text Arguments::Next()
{
    Text Result = words[at++];
    const std::size_t equals = Result.starts_with("--") ? Result.find('=') : Text::npos;
    if (equals != Text::npos) {
        value = Result.substr(equals + 1);
        Result.erase(equals);
    }
    return Result;
}

Text Arguments::ValueOf(const Text &theOption)
{
    if (value) {
        Text Result = std::move(*value);
        value.reset();
        return Result;
    }
    if (AreAtEnd() || words[at].empty() || words[at].starts_with("--"))
        throw OptionError{theOption + " needs a value behind it"};
    return words[at++];
}

void Arguments::RefuseValue(const Text &theOption) const
{
    if (value)
        throw OptionError{theOption + " takes no value"};
}

std::int64_t WholeNumber(const Text &theOption, const Text &theText, std::int64_t theMost)
{
    const bool isNumber =
        !theText.empty() && theText.size() < 16 && theText.find_first_not_of("0123456789") == Text::npos;
    const double number = isNumber ? NumberAtStart(theText) : -1;
    if (!isNumber || number > static_cast<double>(theMost))
        throw OptionError{
            theOption + " needs a whole number from 0 to " + std::to_string(theMost) + ", not " + theText};
    return static_cast<std::int64_t>(number);
}

bool TakeCommonOption(const Text &theOption, Arguments &theArguments)
{
    if (theOption == "--program-dir")
        Paths::SetProgramDir(Host::FullPath(theArguments.ValueOf(theOption)));
    else if (theOption == "--seed") {
        seed = WholeNumber(theOption, theArguments.ValueOf(theOption), 999'999'999'999'999);
        SetClock(static_cast<std::uint64_t>(*seed));
    } else
        return false;
    return true;
}

std::optional<std::int64_t> GivenSeed()
{
    return seed;
}

void RequireProgramDir()
{
    if (!Files::IsDirectory(Paths::ProgramDir()))
        throw OptionError{"there is no program directory " + Paths::ProgramHostDir()};
    if (!Io::Claim(Paths::ProgramHostDir()))
        std::cerr << "ferncastle-play: another Ferncastle is already working in " << Paths::ProgramHostDir() << '\n';
}

// Throws an OptionError for a path that has no form x:\dir\file.
static void RequireNameable(const Text &thePath)
{
    if (thePath.find_first_of("\\\r\n") != Text::npos)
        throw OptionError{"the wizard can't name a path with a backslash or a line break: " + thePath};
}

static Text ExistingDirectory(const Text &thePath)
{
    const Text Result = Host::FullPath(thePath);
    if (Io::KindOf(Result) != Io::Kind::Directory)
        throw OptionError{"there is no directory " + thePath};
    if (!Host::CanRead(Result))
        throw OptionError{"the directory can't be read: " + thePath};
    RequireNameable(Result);
    return Result;
}

// What the wizard makes of a domain that somebody may have copied from a browser. It knows neither https nor capitals.
static Text PlainDomain(const Text &theDomain)
{
    Text Result = LowerText(theDomain);
    for (const char *head : {"https://", "http://", "www."})
        if (Result.starts_with(head))
            Result.erase(0, Text(head).size());
    while (Result.ends_with('/'))
        Result.pop_back();
    if (Result.empty() || Result.find_first_of(" \t\r\n/\\\"'<>?#") != Text::npos)
        throw OptionError{"--domain needs the name of a domain, such as www.my-site.example, not " + theDomain};
    return Result;
}

// A list of keywords of the user.
static Text ReadKeywords(const Text &theFile)
{
    if (Io::KindOf(theFile) != Io::Kind::File)
        throw OptionError{"there is no file " + theFile};
    RequireNameable(theFile);
    try {
        const Text text = Io::Read(theFile);
        if (text.find('\0') != Text::npos)
            throw OptionError{"this file isn't plain text, save it as UTF-8: " + theFile};
        return WithWindowsLineEnds(text);
    } catch (const RuntimeFailure &failure) {
        throw OptionError{theFile + ": " + failure.What};
    }
}

// What the store of a project holds in one of its marked files; empty when there is no such file.
static Text SavedIn(const Text &theProject, const Text &theName)
{
    const Text file = InProgramDir(theProject + "_store\\" + theName);
    return ifFileExists(file) ? GATHERFROMFILE(file) : Text();
}

// Fills in what the project has saved. The wizard's list ends at the first number without a store.
static void LoadProject(RunOptions &theOptions)
{
    const Text number = PadNumberLeft(static_cast<std::int32_t>(WholeNumber("--project", theOptions.Project, 9999)), 4);
    theOptions.Project = number;
    if (number == "0000")
        throw OptionError{"the first project has the number 0001"};
    if (!Files::IsDirectory(InProgramDir(number + "_store")))
        throw OptionError{"there is no project " + number};
    for (int i = 1; i < NumberAtStart(number); ++i)
        if (const Text one = PadNumberLeft(i, 4); !Files::IsDirectory(InProgramDir(one + "_store")))
            throw OptionError{"the wizard can't load project " + number + ", since project " + one +
                              " is missing and its list ends there"};
    theOptions.Name = SavedIn(number, number + ".name");
    theOptions.Domain = SavedIn(number, number + ".dom");
    if (const Text dir = SavedIn(number, number + ".dir"); !dir.empty())
        theOptions.Site = Files::ToHost(dir);
    if (const Text words = SavedIn(number, "NumberOfKeywords.sav"); !words.empty())
        theOptions.PerName = static_cast<long>(NumberAtStart(words));
    if (const Text key = InProgramDir(number + "_store\\" + number + ".key"); ifFileExists(key))
        theOptions.KeywordRows = KeywordsOf(Files::Read(key));
}

// Finds out which number the project has, or will get from the wizard, and what its store has saved.
static void TakeNumber(RunOptions &theOptions)
{
    theOptions.Number = theOptions.Project.empty() ? "0001" : theOptions.Project;
    for (int i = 2; theOptions.Project.empty() && Files::IsDirectory(InProgramDir(theOptions.Number)); ++i)
        theOptions.Number = PadNumberLeft(i, 4);
    theOptions.HasStore = Files::IsDirectory(InProgramDir(theOptions.Number + "_store"));
    const Text former = std::exchange(ProjectNumber, theOptions.Number);
    theOptions.HadQuillmark = LoadVariable("UsingQuillmark", 1) == "True";
    ProjectNumber = former;
}

Text WhyNotWritable(const RunOptions &theOptions)
{
    const Text program = Paths::ProgramHostDir() + '/', real = Io::RealPath(program);
    for (const Text &name : {Text(), theOptions.Number, theOptions.Number + "_store"}) {
        const Text path = program + name;
        if (Io::KindOf(path) == Io::Kind::None)
            continue;
        if (Io::KindOf(path) != Io::Kind::Directory)
            return path + " is in the way: it is no directory";
        if (!name.empty() && Io::RealPath(path) != (real == "/" ? "" : real) + '/' + name)
            return path + " is in the way: it is a link, and the wizard writes only in directories of its own";
        if (!Io::CanWriteIn(path))
            return "you may not write in the directory " + Host::FullPath(path);
    }
    return {};
}

static void Require(const Text &theValue, const Text &theOption, const Text &theCommand)
{
    if (theValue.empty())
        throw OptionError{theOption + " is missing; usage: ferncastle-play " + theCommand + " --help"};
}

Text TooFewKeywords(const RunOptions &theOptions)
{
    const long wanted = theOptions.UsesQuillmark ? 1 : std::max(1L, theOptions.PerName);
    const long sure = SureKeywords(theOptions.KeywordRows, wanted);
    if (sure >= wanted)
        return {};
    if (theOptions.KeywordRows.empty())
        return "there are no keywords";
    return std::to_string(wanted) +
           " keywords in each file name need as many different ones of which none is part of "
           "another; there " +
           (sure == 1 ? "is only 1" : "are only " + std::to_string(sure));
}

RunOptions ReadRunOptions(const Text &theCommand, Arguments &theArguments)
{
    RunOptions Result;
    Text site, domain, name, keywords, perName;
    std::optional<bool> quillmark;
    while (!theArguments.AreAtEnd()) {
        const Text option = theArguments.Next();
        Text *const text = option == "--site"       ? &site
                           : option == "--domain"   ? &domain
                           : option == "--keywords" ? &keywords
                           : option == "--name"     ? &name
                           : option == "--per-name" ? &perName
                           : option == "--project"  ? &Result.Project
                           : option == "--json"     ? &Result.Json
                                                    : nullptr;
        if (text)
            *text = theArguments.ValueOf(option);
        else if (TakeCommonOption(option, theArguments))
            continue;
        else if (option == "--quillmark" || option == "--no-quillmark")
            quillmark = option == "--quillmark";
        else if (option == "--no-filters")
            Result.HasNoFilters = true;
        else if (option == "--quiet")
            Result.IsQuiet = true;
        else if (option == "--print-script" && theCommand == "expand")
            Result.PrintsScript = true;
        else if (option == "--help")
            Result.WantsHelp = true;
        else
            throw OptionError{"there is no option " + option + "; usage: ferncastle-play " + theCommand + " --help"};
        theArguments.RefuseValue(option);
    }
    if (Result.WantsHelp)
        return Result;
    RequireProgramDir();
    // The wizard doesn't start without this file.
    if (!ifFileExists(InProgramDir("variables.sav")))
        throw OptionError{Paths::ProgramHostDir() + " is no program directory: it holds no variables.sav"};
    if (!Result.Project.empty())
        LoadProject(Result);
    TakeNumber(Result);
    if (!Result.Project.empty() && !name.empty())
        throw OptionError{"--name can't rename project " + Result.Project};
    Require(site + Result.Site, "--site", theCommand);
    Require(domain + Result.Domain, "--domain", theCommand);
    if (Result.Project.empty())
        Require(keywords, "--keywords", theCommand);
    Result.Site = ExistingDirectory(site.empty() ? Result.Site : site);
    if (!domain.empty())
        Result.Domain = PlainDomain(domain);
    if (!keywords.empty()) {
        Result.Keywords = Host::FullPath(keywords);
        Result.KeywordRows = KeywordsOf(ReadKeywords(Result.Keywords));
    }
    if (!perName.empty())
        Result.PerName = static_cast<long>(WholeNumber("--per-name", perName, 99));
    Result.UsesQuillmark = quillmark.value_or(!Result.Project.empty() && Result.HadQuillmark);
    if (Result.Project.empty())
        Result.Name = name.empty() ? Result.Domain : name;
    if (!Result.Json.empty()) {
        Result.Json = Host::FullPath(Result.Json);
        try {
            Host::TryFile(Result.Json);
        } catch (const RuntimeFailure &failure) {
            throw OptionError{"--json can't write " + Result.Json + ": " + failure.What};
        }
    }
    return Result;
}

int SaveResult(const RunOptions &theOptions, const Text &theJson, int theCode)
{
    if (theOptions.Json.empty())
        return theCode;
    try {
        Host::WriteFile(theOptions.Json, theJson);
    } catch (const RuntimeFailure &failure) {
        std::cerr << "ferncastle-play: --json can't write " << theOptions.Json << ": " << failure.What << '\n';
        return std::max(theCode, endFailure);
    }
    return theCode;
}
