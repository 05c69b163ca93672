// A domain name as users type it, cleaned.
#pragma once
#include "base/Text.h"

// theDomain without "http://" and then "www." at its front, and without "/" and then "\" at its end, each taken off as
// often as it stands there. The comparison is exact. What is left may be anything, also empty. Never fails.
Text CleanDomain(const Text &theDomain);
