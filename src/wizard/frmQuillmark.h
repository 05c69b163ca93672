// Asks whether Quillmark is in use; the new file names then come from the dictionary.
#pragma once
#include "toolkit/Controls.h"

namespace frmQuillmark
{
extern Form Me;
}  // namespace frmQuillmark
