// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UMatrix4.h"
#include "platform/geometry/UPoint3.h"

#include <array>
#include <functional>
#include <vector>

template <typename T>
class UMesh;

namespace Freecut {

/// The lines in which a plane meets parts.
struct SectionLines
{
    using Point = UPoint3<float>;

    /// In no order; world millimetres.
    std::vector<std::array<Point, 2>> lines;
    /// Where the lines turn by more than a hair's breadth, and where they end.
    std::vector<Point> corners;

    void append(SectionLines const& other);
};

/// The section of one part. A vertex on the plane counts as above it, so that nothing is met twice.
///
/// mesh    in any state: whatever of it the plane meets is a line
/// normal  of the plane, of any length but zero
/// poll    called often; may be empty; what it throws passes
/// thread  any; only reads
/// cost    one pass over the mesh, and the sorting of what the plane meets
SectionLines sectionOfPart(UMesh<float> const& mesh, UMatrix4<float> const& matrix,
                           UPoint3<float> const& onPlane, UVector3<float> const& normal,
                           std::function<void()> const& poll);

}  // namespace Freecut
