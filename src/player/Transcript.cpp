#include "player/Transcript.h"
#include <iostream>

static bool isTranscriptWanted = true;

// Indents all lines but the first, so that they stand below its text.
static Text Indented(const Text &theText)
{
    Text Result;
    for (const char c : theText)
        if (c != '\r')
            Result += c == '\n' ? Text("\n          ") : Text(1, c);
    return Result;
}

void SetTranscript(bool isWanted)
{
    isTranscriptWanted = isWanted;
}

void Say(const Text &theSubject, const Text &theText)
{
    if (!isTranscriptWanted)
        return;
    std::cout << theSubject << Text(theSubject.size() < 10 ? 10 - theSubject.size() : 1, ' ') << Indented(theText)
              << '\n';
}
