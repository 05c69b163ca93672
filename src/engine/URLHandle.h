// Reads a link from the current page, roots a dotted link at the domain, and decides what kind of link it is.
//
// The procedures stand in the order in which a link meets them. All of them work on text. The backslash form of a link
// is the link with every "/" replaced by "\".
#pragma once
#include "base/Text.h"

// Needed throughout.

// The directory of the current page, with a final backslash.
Text PageDirectory();
// The same without the site's root; empty for a page in the root.
Text PageSubdirectory();
// Shows the message about a link that contains slashes of both kinds.
void ShowBothSlashes(const Text &theLink);

// 1. The link is read.

// The tag around a position of RichTextBox2: from the last "<" before it to the next ">", closed up around "=". Has no
// trap: it fails when there is no "<" before the position.
Text GetTagAtPos(std::int64_t thePos);
// The value of the attribute whose "href" begins at thePos in RichTextBox2. A value that never ends is a Standstill.
Text GetLinkAtPos(std::int64_t thePos);

// 2. A link that begins with "." or "\" is rooted at DomainName and put back into its tag.

// The rooted link, with slashes of the kind that theLink has; "0" when it climbs above the site's root.
Text RebaseDottedLink(const Text &theLink);
// The value of the first "href" of a tag.
Text GetLinkFromTag(const Text &theTag);
// theTag with newLink in place of its link. oldLink is not read, because the link is taken from the tag.
Text SwapLinkInTag(const Text &theTag, const Text &newLink, const Text &oldLink);

// 3. The link is classified.

// True when a row of ListLinkTrash occurs in the tag.
bool isLinkTrash(const Text &theTag);
// True when a row of ListDomainExtensions occurs in the link.
bool isDomainExtensionInLink(const Text &theLink);
// -1 for a link into the site, 1 for a link to another site, 0 for a link that is left alone. Takes the backslash form.
std::int16_t isLinkInternal(const Text &theLink, const Text &theTag);

// 4. The file of an internal link is looked for.

// The link without its scheme and "www."; also without its query, unless KEEPEXTRA is 1.
Text StripSiteHead(const Text &theLink, Flag KEEPEXTRA);
// The part of the link below the site's root; theLink itself when no rule fits. KEEPEXTRA as in StripSiteHead.
Text AllAfterSiteRootNet(const Text &theLink, Flag KEEPEXTRA);
// A local path for a link that contains the domain.
Text LocalPathOfLink(const Text &theLink);
// The full path of the first index file in thePath, which ends in a backslash; empty when it has none, "*err*3" when
// thePath is not a directory.
Text ScanForAnIndexFile(const Text &thePath);
// Sets LinkSubDir to the directory of the link below the site's root. False for the link "err", for which LinkSubDir is
// "err" too. Has no trap.
bool SetLinkSubDir(const Text &theLink);
// 2 when the local site has no such file as the link names, otherwise 0. Takes the backslash form. Has no trap.
std::int16_t isLinkBroken(const Text &theLink);
