// Finds the file that a link names, and makes a new page of it: a new name, the link to that name, and the copy.
//
// Despite the module's name, nothing here is temporary. The procedures stand in the order in which a link meets them.
#pragma once
#include "base/Text.h"

// With wantFile 1 and wantDir 0: the bare name of the file that theLink leads to. When the link names a directory, that
// is the directory's index file, or "*err*3" when there is no such directory. With wantDir 1 and wantFile 0: the link
// up to the file name.
Text GetFileFromLink(const Text &theLink, Flag wantDir, Flag wantFile);

// A new file name: six digits, keywords, and the extension of theFileName. Sets FileNameNumber and KeywordsInFileName,
// and lowers KeywordsPerFilename for good when theFileName is shorter. Ends in a Standstill when no row of its list can
// be used.
Text MakeKeywordedFileName(const Text &theFileName);

// theTag with newFile in place of theFile in its link. Empty text for most links that do not contain theFile.
Text InsertFilenameIntoLink(const Text &theFile, const Text &newFile, const Text &theTag);

// Copies the site's file theFile, which theLink leads to, into the project directory under the name newFile. 0 when
// that was done, 1 on failure.
std::int16_t CreateNewlyKeywordedFile(const Text &theLink, const Text &newFile, const Text &theFile);
