// What a link names, and the new pages: their names, their links, their files.
#pragma once
#include "base/Text.h"

// With wantFile 1 and wantDir 0 the bare name of the file that theLink leads to, found by a scan for an index file
// where the link names a directory ("*err*3" where that isn't there); with wantDir 1 and wantFile 0 the link up to that
// name.
Text GetFileFromLink(const Text &theLink, Flag wantDir, Flag wantFile);

// A new file name of six digits, keywords and the extension of theFileName. Sets FileNameNumber and KeywordsInFileName;
// may lower KeywordsPerFilename for good. Doesn't return when no row of its list can be drawn (Standstill).
Text MakeKeywordedFileName(const Text &theFileName);

// theTag with newFile in the place of theFile in its link; empty text where the arithmetic of the odd cases fails.
Text InsertFilenameIntoLink(const Text &theFile, const Text &newFile, const Text &theTag);

// Copies the site's file that theLink leads to into the project directory under the name newFile. 1 on failure, 0 done.
std::int16_t CreateNewlyKeywordedFile(const Text &theLink, const Text &newFile, const Text &theFile);
