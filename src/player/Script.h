// A script: a user's actions, one per line.
#pragma once
#include "toolkit/Controls.h"
#include <istream>
#include <vector>

// Exit codes beside those of Gates.h.
inline constexpr int endExpectation = 1;
inline constexpr int endScript = 2;

struct Action {
    int Line;
    Text Verb;
    Text Target;  // the first word after the verb
    Text Rest;    // everything after the target, to the end of the line
    // All words after the verb.
    Text All() const { return Rest.empty() ? Target : Target + " " + Rest; }
};

// How an action went: Code is 0 or the exit code with which the script ends, and Why says what is wrong.
struct Outcome {
    int Code = 0;
    Text Why = {};
};

// Reads a script. It skips blank lines and comments: "#" starts a comment at the start of a line or after two blanks.
std::vector<Action> ReadScript(std::istream &theInput);

// The screen of that name; null when there is none.
Form *FindForm(const Text &theName);
// The screen, or the control named "screen.control"; null when there is none.
Element *FindElement(const Text &theName);
// What an element shows, on one line.
Text ValueOf(const Element &theElement);
