// The one way in which a procedure catches a run-time failure.
#pragma once
#include "base/Failure.h"
#include "core/AppVars.h"
#include "toolkit/Services.h"
#include <source_location>

// Runs theBody; a run-time failure in it ends it at once and in silence, and the procedure goes on behind the trap with
// what its result holds by then. In a developer's build nothing is caught. The end of the program passes through.
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
