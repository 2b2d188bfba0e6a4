// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SideLabels.h"

#include "host/services/boolean/SideNumbers.h"
#include "host/services/boolean/SideRays.h"

bool labelSides(OperandSoup const& soup, CurveNetwork const& network, WindingSources const& sources,
                SideLabels& labels, StageProgress& progress)
{
    SideNumbers numbers(soup, network, progress);
    if (!numbers.relate(labels) || !numberByRays(soup, network, sources, numbers))
        return false;
    numbers.write(labels);
    return true;
}
