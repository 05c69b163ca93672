#include "toolkit/Presentation.h"
#include "toolkit/QuietPresentation.h"

static QuietPresentation nobody;
static Presentation *front = &nobody;

void SetPresentation(Presentation *thePresentation)
{
    front = thePresentation ? thePresentation : &nobody;
}

Presentation &ThePresentation()
{
    return *front;
}
