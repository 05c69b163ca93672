#include "engine/Filter.h"
#include "core/TextOps.h"
#include "engine/frmProcess.h"
#include "wizard/frmFilters.h"

// Deliberate: only the last three letters count and the dot does not matter: the row "tml" matches ".html".
bool EndsInRow(const Text &theFile, const Text &theRow)
{
    return EqualsIgnoringCase(RightPart(theFile, 3), theRow);
}

bool PassesFilter(const Text &theFile)
{
    // Deliberate: with the filter off pictures pass too: they are read and rewritten as pages.
    if (!frmProcess::Menu.optUseFilters.Checked)
        return true;
    for (int row = 0; row < frmFilters::List1.ListCount(); ++row)
        if (EndsInRow(theFile, frmFilters::List1.List(row)))
            return true;
    return false;
}
