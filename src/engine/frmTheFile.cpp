#include "engine/frmTheFile.h"

namespace frmTheFile
{
Form Me{"frmTheFile", {.Width = 600, .Height = 435, .Caption = "The file"}};
TextHolder rtb1{Me, "rtb1", {}};
TextHolder rtb2{Me, "rtb2", {}};
}  // namespace frmTheFile
