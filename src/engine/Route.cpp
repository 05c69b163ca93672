#include "engine/Route.h"
#include "engine/Filter.h"
#include "engine/PageText.h"

// A routed page as it is written to its file, with the line end that every printed text gets.
static Text RoutedFile(const Text &thePage, const Text &depthPrefix)
{
    return RelinkRoutedPage(thePage, depthPrefix) + CRLF;
}

Expectation RouteOf(const Text &theFile)
{
    return {RoutedFile, StringMulti(GetDirLevel(theFile, 1), "../")};
}

Expectation ExpectedRoute(const Text &theFile)
{
    return PassesFilter(theFile) ? RouteOf(theFile) : Expectation();
}
