#include "wizard/CleanDomain.h"
#include "wizard/HelpBox.h"

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

void RefuseEmptyDomain(Form &theForm)
{
    ShowHelpBox(theForm, "Domain Name",
        "To continue, you must enter a domain name for your project.  This is the site that Ferncastle will use to "
        "find "
        "your internal links as well as for other functions.");
}
