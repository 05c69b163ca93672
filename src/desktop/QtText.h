// Texts of the program on screen and back. The program's texts are bytes: shown as UTF-8 where they are valid, else as
// Latin-1, with LF for CR LF.
#pragma once
#include "base/Text.h"
#include <QString>

QString ToQString(const Text &theText);
Text FromQString(const QString &theText);
// Words for a tip, which takes what looks like a page's text for one.
QString ToolTipText(const QString &theWords);
