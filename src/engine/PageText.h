// The fixed replacements that make a page's links to the site's root relative to the page's depth.
#pragma once
#include "base/Text.h"

// thePage lower-cased, with the five replacements of an expanded page. depthPrefix is "../" once a level.
Text RelinkExpandedPage(const Text &thePage, const Text &depthPrefix);
// The same with the five replacements of the route pass.
Text RelinkRoutedPage(const Text &thePage, const Text &depthPrefix);
