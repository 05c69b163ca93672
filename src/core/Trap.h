// How procedures catch run-time failures.
#pragma once
#include "base/Failure.h"
#include "core/AppVars.h"
#include "toolkit/Services.h"
#include <source_location>

// Runs theBody. A run-time failure ends theBody without a message, and the procedure continues behind the trap with the
// result as it is at that moment. While DevMode is true nothing is caught. The end of the program is never caught.
template <class Body> void Trap(Body &&theBody, const std::source_location theCaller = std::source_location::current())
{
    if (DevMode) {
        theBody();
        return;
    }
    try {
        theBody();
    } catch (const RuntimeFailure &failure) {
        ReportTrapped(failure, theCaller.function_name());
    }
}
