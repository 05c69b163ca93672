// File services: testing, copying, reading and writing files, lists and saved variables. A file is read or written
// whole within one call. Every write ends in CR LF, so saved values carry the end marker "[]".
#pragma once
#include "disk/Expectation.h"
#include "toolkit/Controls.h"

// True when a plain file with that path exists and is not hidden. "*" and "?" in its name are wildcards. Never fails.
bool ifFileExists(const Text &theFile);
// thePath, with a backslash added when its last character is not one.
Text AddTrailingSlash(const Text &thePath);
// Copies a file, replaces toFile, and creates the directories of toFile. theExpectation is what the copy will be
// changed to later, where that is known. 0 when that was done, 1 when not.
std::int16_t CopyFile(const Text &fromFile, const Text &toFile, const Expectation &theExpectation = {});
// Sets the text of theBox to the whole content of the file. Has no trap: a failure goes to its caller.
void LoadFileIntoBox(const Text &theFile, TextHolder &theBox);

// Adds theText to the end of the box's text, with no line end. Always 0.
int AppendLineToFile(TextHolder &theTarget, const Text &thePath, const Text &theText);
// Adds theText as a line to the file theTarget in the directory thePath. Always 0.
int AppendLineToFile(const Text &theTarget, const Text &thePath, const Text &theText);

// Writes the rows of theList to theName.theExtension under the program directory. Returns empty text.
Text SaveListToFile(const Text &theExtension, const Text &theName, const ListBox &theList);
// Clears theList and fills it from the same path, with at most 30,001 rows. Text after the last CR is not a row.
// Returns the number of rows, 0 when the file is missing.
long LoadListFromFile(const Text &theExtension, const Text &theName, ListBox &theList);

// The text of the file up to the first "[]". Empty when there is no "[]", "FileNotExist" when there is no file.
Text GATHERFROMFILE(const Text &theFile);
// Writes theText, "[]" and CR LF. An existing file is overwritten only when quiet is 1 or more. Always 0.
int SaveMarkedFile(const Text &theFile, const Text &theText, int quiet);
// Writes theText and CR LF.
void PrintToFile(const Text &theFile, const Text &theText);

// theFileName with a new random number in place of FileNameNumber. Empty when it does not contain FileNameNumber.
Text NewNumberInFileName(const Text &theFileName);

// The value of a saved variable, whose name is compared without regard to case. A scope below 1 means the program's
// file, 1 or more the project's. Empty when there is no such variable.
Text LoadVariable(const Text &theName, int scope);
// Saves a variable in the file that LoadVariable reads. Always 0.
int SaveVariable(const Text &theName, const Text &theValue, int scope);

// The program directory followed by a backslash and theRest.
Text InProgramDir(const Text &theRest);
// The path of a picture in the directory imgs, given by its file name. Fails when the picture does not exist.
Text PictureOf(const Text &theFile);
// The store directory of the current project followed by a backslash and theRest.
Text InStoreDir(const Text &theRest);
