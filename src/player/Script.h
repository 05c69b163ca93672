// A script of a user's actions, a line a action.
#pragma once
#include "toolkit/Controls.h"
#include <istream>
#include <vector>

struct Action {
    int Line;
    Text Verb;
    Text Target;  // first word behind the verb
    Text Rest;    // what follows it, to the end of the line
    // The words behind the verb, whole.
    Text All() const { return Rest.empty() ? Target : Target + " " + Rest; }
};

// Reads a script. Blank lines are passed over; "#" at the start of a line, or behind two blanks, begins a comment.
std::vector<Action> ReadScript(std::istream &theInput);

// The screen of that name, null when there is none.
Form *FindForm(const Text &theName);
// The control named "screen.control", null when there is none.
Element *FindElement(const Text &theName);
// What an element shows, on one line.
Text ValueOf(const Element &theElement);

// Sets a variable of AppVars by its name; false when there is none of that name.
bool SetAppVar(const Text &theName, const Text &theValue);
