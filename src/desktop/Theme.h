// The colours, fonts and style sheets of the windows.
#pragma once
#include "toolkit/Controls.h"
#include <QColor>
#include <QFont>
#include <QPalette>

namespace Theme
{
inline constexpr QColor Pine{0x12, 0x3F, 0x38}, Fern{0x1F, 0x6B, 0x55}, Leaf{0x6F, 0xBF, 0x96}, Mint{0xF0, 0xF4, 0xF1},
    MintHover{0xE3, 0xF0, 0xEA}, Paper{0xFB, 0xFA, 0xF6}, Ink{0x20, 0x30, 0x2C}, Dim{0x5A, 0x6B, 0x65},
    Line{0xC9, 0xD6, 0xCF}, CardLine{0xD5, 0xDF, 0xDA}, Border{0x76, 0x8C, 0x82}, Rust{0xA8, 0x40, 0x2F},
    Amber{0xE9, 0xA9, 0x3A}, AmberDark{0xB8, 0x7C, 0x1C}, Navy{0x1F, 0x3A, 0x6E}, Ice{0xDC, 0xE8, 0xF7},
    FocusRing{0x1B, 0x2F, 0x5B}, White{0xFF, 0xFF, 0xFF};

// Loads the fonts that are shipped with the program; if they are missing, Qt uses fonts of the host.
void LoadFonts();
// The font and the text colour of a label.
QFont FontOf(TextStyle theStyle);
QColor TextColourOf(TextStyle theStyle);
// Sets all colour roles, so that the screens look the same on a dark desktop.
QPalette LightPalette();
// Style sheets, for what a palette cannot express.
QString MenuStyle();
QString ListStyle();
QString TableStyle();
QString LineEditStyle();
QString ComboBoxStyle();
QString HelpTextStyle();
QString ToolBarStyle();
QString HintStyle();
QString DropStyle();
QString MessageBoxStyle();
}  // namespace Theme
