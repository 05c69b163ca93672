// Converts the program's texts to QString and back. They are bytes: valid UTF-8 is read as UTF-8, anything else as
// Latin-1. CR LF becomes LF.
#pragma once
#include "base/Text.h"
#include <QString>

QString ToQString(const Text &theText);
Text FromQString(const QString &theText);
// A text for a tool tip, escaped when the tool tip would take it for HTML.
QString ToolTipText(const QString &theWords);
