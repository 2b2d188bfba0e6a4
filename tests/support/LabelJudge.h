// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/Soup.h"

#include <string>

/// Holds what the booleans tell of the sides of each facet, before any is written, against winding
/// numbers at points on both sides of its middle. These share no code with the services.
///
/// facets of less than 1e-3 mm2 are not looked at, so coordinates should be small whole numbers
/// returns  "" if all is right, "the sides contradict each other" if the curves do not tell, or the
///          first facet of which something wrong is told
std::string faultsOfLabels(Soup const& first, Soup const& second);
