// What the route pass makes of a page. The expansion asks for it too, since it writes a new page in that form at once.
#pragma once
#include "disk/Expectation.h"

// The change that the pass makes to a file of the project directory, given by its full path.
Expectation RouteOf(const Text &theFile);
// The same, or none where the filter excludes the file from the pass.
Expectation ExpectedRoute(const Text &theFile);
