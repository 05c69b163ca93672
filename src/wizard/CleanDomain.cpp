#include "wizard/CleanDomain.h"

// Does not use StripFromEnds, which leaves a doubled end in place.
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
