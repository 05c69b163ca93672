// Reads back the records of external and broken links for the report, and tests for media links. A record is a payload,
// "[]" and CR LF; record k of a Files text and record k of its Links text describe the same link.
#pragma once
#include "base/Text.h"
#include <functional>
#include <vector>

// Hands the rows of a table over, one after the other. Together they may take more memory than there is.
using TableRows = std::function<void(const std::function<void(const Text &)> &)>;
// The table rows of a report page for LinkType "External" or "Broken"; none if there are no records. Yields, but what
// it returns doesn't.
TableRows TabulateLinks(Text LinkType);
// The payload that begins at thePos; empty if no "[]" follows. With doIncrement 1 thePos moves to the next record.
Text GetLineFromText(std::int32_t &thePos, const Text &theText, std::int16_t doIncrement);
// Counts the consecutive records from posStart that hold exactly theLine, and moves posStart past them. Yields at each
// record, so theText must not be the value of a property; it isn't copied because this is called for each page.
std::int16_t GetRepeatingLines(std::int32_t &posStart, const Text &theText, const Text &theLine);
// 3 if the link's extension is a row of lstMediaExtensions, else -1.
std::int16_t isLinkMedia(const Text &theLink);

// A row of a report page's table with a cell for each text.
Text TableRow(const std::vector<Text> &theCells);
