// Finds links in the file of a page. Scripts can change the links of a page in the view, but not those in its file.
#pragma once
#include <QUrl>

// The link to theAddress in the file of the page at thePage, as the file spells it; an empty URL when there is none.
QUrl LinkInFile(const QUrl &thePage, const QUrl &theAddress);
// The same for a text that is the file's content.
QUrl LinkInText(const QByteArray &theText, const QUrl &thePage, const QUrl &theAddress);
