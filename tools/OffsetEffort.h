// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <polyclipping/clipper.hpp>

namespace Freecut {

/// How much work it is to move outlines sideways: about the number of pairs of an edge and a corner
/// at whose height the edge passes. At corners that turn away from the side on which the outline
/// goes, the edges from the corner to its images are counted, too.
///
/// A sweep from the top to the bottom meets each of these pairs, in about 0.1 microseconds. They
/// are few where an outline is drawn once around, and a great many where corners are nearer to each
/// other than the distance.
///
/// distance  in the units of the paths; negative for inward
/// cost      in proportion to the points
double offsetEffort(ClipperLib::Paths const& paths, double distance);

}  // namespace Freecut
