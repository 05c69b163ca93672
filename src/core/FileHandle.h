// File services: tests, copies, whole files, rows of lists, saved variables. A file is read or written whole within one
// call; every write ends in CR LF, which is why saved values carry the marker "[]".
#pragma once
#include "toolkit/Controls.h"

// True when a visible plain file of that path is there; "*" and "?" in its name are wildcards. Never fails.
bool ifFileExists(const Text &theFile);
// thePath, with a backslash added when its last character is not one.
Text AddTrailingSlash(const Text &thePath);
// Copies a file over toFile, with the directories that it needs. 0 done, 1 not done.
std::int16_t CopyFile(const Text &fromFile, const Text &toFile);
// Sets the text of theBox to the file's whole content. Has no trap: a failure is its caller's.
void LoadFileIntoBox(const Text &theFile, TextHolder &theBox);

// Adds theText to the end of the box's text, with nothing between. Always 0.
int AppendLineToFile(TextHolder &theTarget, const Text &thePath, const Text &theText);
// Adds theText as a line to the file theTarget in the directory thePath. Always 0.
int AppendLineToFile(const Text &theTarget, const Text &thePath, const Text &theText);

// Writes the rows of theList to theName.theExtension under the program directory. Returns empty text.
Text SaveListToFile(const Text &theExtension, const Text &theName, const ListBox &theList);
// Fills theList anew from the same path, at most 30,001 rows; text behind the last CR is not a row. Returns the number
// of rows, 0 when the file is missing.
long LoadListFromFile(const Text &theExtension, const Text &theName, ListBox &theList);

// The file's text up to the first "[]"; empty when it holds none, "FileNotExist" when there is no such file.
Text GATHERFROMFILE(const Text &theFile);
// Writes theText, "[]" and CR LF; a file that exists is only written over when quiet is 1 or more. Always 0.
int SaveMarkedFile(const Text &theFile, const Text &theText, int quiet);
// Writes theText as it stands and CR LF.
void PrintToFile(const Text &theFile, const Text &theText);

// theFileName with a new random number in place of FileNameNumber; empty when it doesn't hold that.
Text NewNumberInFileName(const Text &theFileName);

// A saved variable, its name in any case; scope below 1 is the program's file, 1 or more the project's. Empty when it
// isn't there.
Text LoadVariable(const Text &theName, int scope);
// Always 0.
int SaveVariable(const Text &theName, const Text &theValue, int scope);

// The program directory followed by a backslash and theRest.
Text InProgramDir(const Text &theRest);
// The path of a picture of imgs, given by its file's name; a run-time failure when it isn't there.
Text PictureOf(const Text &theFile);
// The store directory of the current project followed by a backslash and theRest.
Text InStoreDir(const Text &theRest);
