#include "core/frmLists.h"

namespace frmLists
{
Form Me{"frmLists", {.Caption = "Lists"}};
ListBox ListDomainExtensions{Me, "ListDomainExtensions", {}};
ListBox ListLinkTrash{Me, "ListLinkTrash", {}};
ListBox ListIndexes{Me, "ListIndexes", {}};
ListBox lstMediaExtensions{Me, "lstMediaExtensions", {}};
ListBox lstMediaLinksCnt{Me, "lstMediaLinksCnt", {}};
ListBox lstMediaFilesCnt{Me, "lstMediaFilesCnt", {}};
ListBox lstDictionary{Me, "lstDictionary", {}};
ListBox lstKeywords{Me, "lstKeywords", {}};
ListBox lstKeywordDistribution{Me, "lstKeywordDistribution", {}};
ListBox lstKeywordWeight{Me, "lstKeywordWeight", {}};
TextHolder RichTextBox1{Me, "RichTextBox1", {}};
TextHolder RichTextBox2{Me, "RichTextBox2", {}};
TextHolder rtbReport{Me, "rtbReport", {}};
std::shared_ptr<const Text> rtbReportTemp = std::make_shared<const Text>(), rtbReportTemp2 = rtbReportTemp;
}  // namespace frmLists
