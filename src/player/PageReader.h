// Reads a page for the player's browser: its title, its text and its links.
#pragma once
#include "base/Text.h"

// The text of the page's title, empty when it has none.
Text TitleOfPage(const Text &thePage);
// The text of the page, without styles and scripts; each table row or block is a line.
Text TextOfPage(const Text &thePage);
// The address of the first link whose text contains theText, ignoring case; empty when there is none.
Text AddressOfLink(const Text &thePage, const Text &theText);
// Resolves theAddress, a relative path, a full path or a web address, against the page at thePage.
Text AddressFrom(const Text &thePage, const Text &theAddress);
