// What the player's browser knows of a page: its title and its links.
#pragma once
#include "base/Text.h"

// The text of the page's title, empty when it has none.
Text TitleOfPage(const Text &thePage);
// What a page says to its reader, a line a table row or block, without styles and scripts.
Text TextOfPage(const Text &thePage);
// The address behind the first link whose words hold theText, ignoring case; empty when there is none.
Text AddressOfLink(const Text &thePage, const Text &theText);
// theAddress as seen from the page at thePage: a path beside it, a full path or a web address.
Text AddressFrom(const Text &thePage, const Text &theAddress);
