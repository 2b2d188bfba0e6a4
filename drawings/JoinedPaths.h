// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "drawings/Drawing.h"

namespace Drawings {

/// Joins open paths whose ends are within 0.01 mm of each other, in either direction. Each result
/// stands where its first path stood. Where more than two ends meet, the first two are joined.
std::vector<Path> joinedPaths(std::vector<Path> paths);

}  // namespace Drawings
