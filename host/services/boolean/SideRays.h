// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/SideLabels.h"

class SideNumbers;

/// Makes the numbers absolute that curves tell differences of: asks rays through either operand from
/// places on the other, and on the second itself, and holds what is told twice against each other.
///
/// returns  false where two answers disagree, or a piece of a closed operand has none
bool numberByRays(OperandSoup const& soup, CurveNetwork const& network,
                  WindingSources const& sources, SideNumbers& numbers);
