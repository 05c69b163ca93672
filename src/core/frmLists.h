// The program's memory: word lists, tallies, the page in hand. Never shown; none of its lists sorts.
#pragma once
#include "toolkit/Controls.h"

namespace frmLists
{
extern Form Me;
extern ListBox ListDomainExtensions;  // fragments that mark a link as leading to another site
extern ListBox ListLinkTrash;         // fragments of a tag that mark its link as not to be touched
extern ListBox ListIndexes;           // names of index files, in the order in which they are tried
extern ListBox lstMediaExtensions;    // three letters a row, or "---" for a rule across the media table
extern ListBox lstMediaLinksCnt;      // row i counts links to the extension of row i
extern ListBox lstMediaFilesCnt;      // row i counts files of the extension of row i
extern ListBox lstDictionary;         // words for new file names
extern ListBox lstKeywords;           // the project's keywords
extern ListBox lstKeywordDistribution, lstKeywordWeight;     // nothing reads or fills them
extern TextHolder RichTextBox1;                              // the page in hand, as read
extern TextHolder RichTextBox2;                              // the same page, lower-cased
extern TextHolder rtbReport, rtbReportTemp, rtbReportTemp2;  // the report under construction
}  // namespace frmLists
