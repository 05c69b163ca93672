// What the commands "expand" and "check" are told on the command line.
#pragma once
#include "core/KeywordList.h"
#include <optional>
#include <vector>

// Something that is wrong with the command line or with what it names, in one line for a person.
struct OptionError {
    Text What;
};

// The words of a command line, taken one after the other.
class Arguments
{
public:
    explicit Arguments(std::vector<Text> theWords) : words(std::move(theWords)) {}
    bool AreAtEnd() const { return at >= words.size(); }
    // Takes the next word. Of "--option=value" it takes the option; the value is next then.
    Text Next();
    // Takes the value of theOption; throws an OptionError when there is none.
    Text ValueOf(const Text &theOption);
    // Throws an OptionError when "=value" follows an option that has none.
    void RefuseValue(const Text &theOption) const;

private:
    std::vector<Text> words;
    std::size_t at = 0;
    std::optional<Text> value;
};

// Takes an option that all commands share: --program-dir and --seed. False when theOption is another one.
bool TakeCommonOption(const Text &theOption, Arguments &theArguments);
// Throws an OptionError when there is no program directory. Says so when another process works in it.
void RequireProgramDir();
// The seed, when one was given.
std::optional<std::int64_t> GivenSeed();
// theText as a whole number from 0 to theMost; throws an OptionError when it is none.
std::int64_t WholeNumber(const Text &theOption, const Text &theText, std::int64_t theMost);

// Everything that a run needs to know. What the command line leaves out comes from the project or is the usual.
struct RunOptions {
    Text Site;      // full path of the host
    Text Domain;    // as the wizard is told it
    Text Name;      // of the project
    Text Keywords;  // full path of the host; empty for those of the project
    long PerName = 3;
    bool UsesQuillmark = false;
    bool HasNoFilters = false;
    Text Project;                      // four digits; empty for a new project
    Text Number;                       // that the run will have, also for a new project
    bool HasStore = false;             // its store is there, as it may be for a new project too
    bool HadQuillmark = false;         // what the store has saved
    std::vector<Keyword> KeywordRows;  // the keywords themselves
    Text Json;                         // full path of the host; empty for none
    bool IsQuiet = false, PrintsScript = false, WantsHelp = false;
};

// Reads and checks the command line of "expand" or "check"; throws an OptionError for the first thing that is wrong.
RunOptions ReadRunOptions(const Text &theCommand, Arguments &theArguments);
// Writes theJson where --json says, if anywhere. Returns theCode, or that of a failure when it could not be written.
int SaveResult(const RunOptions &theOptions, const Text &theJson, int theCode);
// Why the run could not write where it must, or nothing.
Text WhyNotWritable(const RunOptions &theOptions);
// What is wrong with the number of keywords, or nothing.
Text TooFewKeywords(const RunOptions &theOptions);
