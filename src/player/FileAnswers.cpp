#include "player/FileAnswers.h"
#include "base/Failure.h"
#include "core/KeywordList.h"
#include "disk/Files.h"
#include "disk/Io.h"
#include "disk/Paths.h"

Outcome FileAnswers::AddTextFile(const Text &thePath)
{
    try {
        const Text text = Files::Read(thePath), windows = WithWindowsLineEnds(text);
        if (text == windows) {
            Add(thePath);
            return {};
        }
        copies.push_back(std::make_unique<Host::TempDir>());
        const Text copy = copies.back()->PathOf("copy.txt");
        Io::Write(copy, windows);
        answers.push_back({Paths::FromHost(copy), thePath});
    } catch (const RuntimeFailure &failure) {
        return {endScript, failure.What + ": " + failure.Where};
    }
    return {};
}

FileAnswers::Answer FileAnswers::Take()
{
    if (answers.empty())
        return {};
    Answer Result = answers.front();
    answers.pop_front();
    return Result;
}

void FileAnswers::Tidy()
{
    if (answers.empty())
        copies.clear();
}
