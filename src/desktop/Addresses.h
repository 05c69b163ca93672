// Translates between the program's addresses and Qt's URLs.
#pragma once
#include "base/Text.h"
#include <QUrl>

// The URL of an address of the program: x:\dir\page.html or http://...
QUrl UrlOf(const Text &theAddress);
// The address of a URL as the program writes it: x:\dir\page.html for a file, without the fragment; else the URL.
Text AddressOf(const QUrl &theUrl);
// A link of the form x:\dir\page.html arrives as a URL whose scheme is the drive letter. Returns the URL of the file
// that it means; an empty URL when theUrl is not such a link.
QUrl UrlOfDriveLink(const QUrl &theUrl);
// The path of the host of a file's URL.
Text HostPathOf(const QUrl &theUrl);
// Whether theUrl is a page that a view can open, and not a mail address, a script or a drive link.
bool IsPage(const QUrl &theUrl);
// The last part of an address of the program: the name of a file, or the whole of a web address.
Text NameOf(const Text &theAddress);
