// Asks whether the new file names follow the sibling tool Quillmark.
#pragma once
#include "toolkit/Controls.h"

namespace frmQuillmark
{
extern Form Me;
}  // namespace frmQuillmark
