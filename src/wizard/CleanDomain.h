// A domain name as users type it: cleaned, or refused.
#pragma once
#include "toolkit/Form.h"

// Removes "http://" and then "www." from the front of theDomain, "/" and then "\" from its end, each as often as it
// occurs there. Case matters. What is left may be anything, even empty. Never fails.
Text CleanDomain(const Text &theDomain);
// Shows in the help box of theForm that a domain name is needed.
void RefuseEmptyDomain(Form &theForm);
