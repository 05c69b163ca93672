// A store that is never shown: word lists, counts, the current page. Its lists are not sorted.
#pragma once
#include "toolkit/Controls.h"

namespace frmLists
{
extern Form Me;
extern ListBox ListDomainExtensions;  // texts that mark a link as leading to another site
extern ListBox ListLinkTrash;         // texts in a tag that mark its link as not to be touched
extern ListBox ListIndexes;           // names of index files, in the order in which they are tried
extern ListBox lstMediaExtensions;    // three letters in each row, or "---" for a line across the media table
extern ListBox lstMediaLinksCnt;      // row i counts links to the extension of row i
extern ListBox lstMediaFilesCnt;      // row i counts files of the extension of row i
extern ListBox lstDictionary;         // words for new file names
extern ListBox lstKeywords;           // the project's keywords
extern ListBox lstKeywordDistribution, lstKeywordWeight;  // nothing reads or fills them
extern TextHolder RichTextBox1;                           // the current page, as read
extern TextHolder RichTextBox2;                           // the same page in lower case
extern TextHolder rtbReport;                              // the report page that is being made
// The records of links for the report: pages and tags. Shared, because they can be large.
extern std::shared_ptr<const Text> rtbReportTemp, rtbReportTemp2;
}  // namespace frmLists
