// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/FilledSides.h"

#include "cutjobs/common/RemarkTexts.h"

void remarkOnCuts(CutRemarks& remarks, Mesh::DocumentObject* part, FilledSides const& atBase,
                  FilledSides const& atOffset, bool bounded)
{
    if (atBase.isUncut() && atBase == atOffset)
        remarks.push_back(planeMisses(part, bounded));
    else if (atBase.upper && !atBase.lower && !atOffset.upper)
        remarks.push_back(gapTakesPart(part));
    else if (!atBase.lower && atOffset.lower)
        remarks.push_back(gapTakesLower(part));
    else if (atBase.upper && !atOffset.upper)
        remarks.push_back(gapTakesUpper(part));
}
