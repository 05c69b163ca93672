// The files that the next file dialogs return.
#pragma once
#include "player/Host.h"
#include "player/Script.h"
#include <deque>
#include <memory>

class FileAnswers
{
public:
    struct Answer {
        Text Path;   // empty: the dialog is cancelled
        Text Shown;  // the file that the script names
    };
    void Add(const Text &thePath) { answers.push_back({thePath, thePath}); }
    // Adds a text file. When its lines end in another way than Windows lines do, the program gets a temporary copy in
    // which they do so.
    Outcome AddTextFile(const Text &thePath);
    // The answer to the next dialog.
    Answer Take();
    // Removes the copies that the program has read.
    void Tidy();

private:
    std::deque<Answer> answers;
    std::vector<std::unique_ptr<Host::TempDir>> copies;
};
