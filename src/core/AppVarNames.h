// Finds a global variable by its name, for the scripts of the player.
#pragma once
#include "base/Text.h"
#include <optional>
#include <variant>

using AppVar = std::variant<Text *, bool *, long *, double *>;

// The variable of AppVars with that name; empty when there is none.
std::optional<AppVar> FindAppVar(const Text &theName);
// The number of variables that can be found.
std::size_t AppVarCount();
