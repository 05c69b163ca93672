#include "player/GivenVars.h"
#include "core/AppVarNames.h"
#include "core/TextOps.h"

bool SetAppVar(const Text &theName, const Text &theValue)
{
    const std::optional<AppVar> var = FindAppVar(theName);
    if (!var)
        return false;
    if (const auto *text = std::get_if<Text *>(&*var))
        **text = theValue;
    else if (const auto *flag = std::get_if<bool *>(&*var))
        **flag = NumberAtStart(theValue) != 0 || EqualsIgnoringCase(theValue, "True");
    else if (const auto *count = std::get_if<long *>(&*var))
        **count = static_cast<long>(NumberAtStart(theValue));
    else
        *std::get<double *>(*var) = NumberAtStart(theValue);
    return true;
}
