// The records of external and broken links as the report reads them back, and the test for media links. A record is a
// payload, "[]" and CR LF; record k of a Files text and record k of its Links text tell of the same link.
#pragma once
#include "base/Text.h"
#include <vector>

// The table rows of a report page for LinkType "External" or "Broken"; empty when there is no record. Yields.
Text TabulateLinks(Text LinkType);
// The payload that begins at thePos; empty when no "[]" follows. With doIncrement 1 thePos moves to the next record.
Text GetLineFromText(std::int32_t &thePos, const Text &theText, std::int16_t doIncrement);
// How many records in a row from posStart hold exactly theLine; posStart moves behind them. It yields at each record
// and is called once a page, so the texts are neither a property's nor copied.
std::int16_t GetRepeatingLines(std::int32_t &posStart, const Text &theText, const Text &theLine);
// 3 when the link's extension is a row of lstMediaExtensions, else -1.
std::int16_t isLinkMedia(const Text &theLink);

// A row of a report page's table, a cell for each text.
Text TableRow(const std::vector<Text> &theCells);
