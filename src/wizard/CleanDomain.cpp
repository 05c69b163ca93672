#include "wizard/CleanDomain.h"

// Not by StripFromEnds: that gives a text whose end is doubled back whole.
Text CleanDomain(const Text &theDomain)
{
    Text Result = theDomain;
    for (const Text &head : {Text("http://"), Text("www.")})
        while (Result.starts_with(head))
            Result.erase(0, head.size());
    for (const char tail : {'/', '\\'})
        while (Result.ends_with(tail))
            Result.pop_back();
    return Result;
}
