// What a user can do with any page: find a text, change the size, print it, load it anew. All are keys of the window.
#pragma once
#include "desktop/Pages.h"
#include <QWidget>

namespace PageTools
{
// Adds the keys to the window of a page view, and a search bar above the view in theHolder. Above a plain view stands a
// button that opens the page in the user's web browser.
void Add(Pages &thePages, QWidget &theHolder);
// Names the keys for a tip.
QString KeysText();
}  // namespace PageTools
