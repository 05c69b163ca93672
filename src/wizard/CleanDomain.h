// A domain name as users type it, cleaned.
#pragma once
#include "base/Text.h"

// Removes "http://" and then "www." from the front of theDomain, "/" and then "\" from its end, each as often as it
// occurs there. Case matters. What is left may be anything, even empty. Never fails.
Text CleanDomain(const Text &theDomain);
