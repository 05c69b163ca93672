// The reading of links from the page in hand, and the rules that tell them apart. All of it works on text.
// The backslash form of a link has every "/" replaced by "\".
#pragma once
#include "base/Text.h"

// The tag around a position in RichTextBox2, from the nearest "<" before to the next ">", closed up around "=". Has no
// trap: without a "<" before the position it fails.
Text GetTagAtPos(std::int64_t thePos);
// The value of the attribute whose "href" begins at thePos in RichTextBox2. A value that never ends is a Standstill.
Text GetLinkAtPos(std::int64_t thePos);
// The value of the first "href" of a tag.
Text GetLinkFromTag(const Text &theTag);
// theTag with newLink in the place of its link. oldLink is not read: the link comes from the tag.
Text SwapLinkInTag(const Text &theTag, const Text &newLink, const Text &oldLink);
// The link without scheme and "www.", and, unless KEEPEXTRA is 1, without its query.
Text StripSiteHead(const Text &theLink, Flag KEEPEXTRA);
// Whether a row of ListDomainExtensions stands in the link.
bool isDomainExtensionInLink(const Text &theLink);
// Whether a row of ListLinkTrash stands in the tag.
bool isLinkTrash(const Text &theTag);
// A link that begins with "." or "\", rooted at DomainName, with its own kind of slashes; "0" when it climbs above the
// site's root.
Text RebaseDottedLink(const Text &theLink);

// The part of the link below the site's root; theLink itself where no rule fits. KEEPEXTRA as in StripSiteHead.
Text AllAfterSiteRootNet(const Text &theLink, Flag KEEPEXTRA);
// A local path for a link of the domain form.
Text LocalPathOfLink(const Text &theLink);
// The full path of the first index file of a directory, empty when it has none, "*err*3" when it isn't there. thePath
// ends in a backslash.
Text ScanForAnIndexFile(const Text &thePath);
// -1 a link into the site, 1 a link to another one, 0 a link to leave alone. Takes the backslash form.
std::int16_t isLinkInternal(const Text &theLink, const Text &theTag);
// 2 when the file that the link names isn't in the local site, else 0. Takes the backslash form. Has no trap.
std::int16_t isLinkBroken(const Text &theLink);

// The page directory: where the page in hand lies, with a final backslash.
Text PageDirectory();
// The same below the site's root: empty for a page in the root.
Text PageSubdirectory();
// Tells the user of a link that holds slashes of both kinds.
void ShowBothSlashes(const Text &theLink);
