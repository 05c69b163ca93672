// Paths as the Windows calls take them, and the reasons that these calls give. A path of the host has the form
// C:/dir/file here, in UTF-8. A directory of another computer is reached by a drive letter alone: a page that names
// //server/share must not make this computer tell that server who is asking.
#pragma once
#include "base/Text.h"
#include <string_view>

namespace IoPath
{
// thePath in the form \\?\C:\dir\file, which has no limit of 260 characters and stands for nothing but that very name:
// no device, no stream of a file, no name without its final point. Empty when no file can have such a path.
std::wstring ForSystem(const Text &thePath);
// The same for a file or directory that is to be made. A run-time failure when Windows doesn't allow its name.
std::wstring ForNew(const Text &thePath);
// Text of the system in UTF-8; empty when it can't be expressed.
Text ToText(std::wstring_view theText);
// A full path of the system, with or without \\?\, in our form.
Text FromSystem(std::wstring_view thePath);
// A path in any form that Windows users write: in full, with long names for short ones and the case that the disk has,
// as far as it is there.
Text InFull(const Text &thePath);

// Why the last call failed, in a few words.
Text LastReason(const Text &thePath);
[[noreturn]] void FailHere(const Text &thePath);
}  // namespace IoPath
