// How a copied file will be rewritten later.
#pragma once
#include "base/Text.h"

// A change of a whole text that depends on nothing but the text and one argument.
struct Expectation {
    Text (*Change)(const Text &theContent, const Text &theArgument) = nullptr;
    Text Argument = {};

    explicit operator bool() const { return Change != nullptr; }
    bool operator==(const Expectation &) const = default;
    Text Apply(const Text &theContent) const { return Change(theContent, Argument); }
};
