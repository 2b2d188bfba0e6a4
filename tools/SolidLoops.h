// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <memory>
#include <vector>

template <typename T>
class UMesh;

namespace Freecut {

class VolumeOutline;

/// What the solids of a tool are made of, as values, so that they can be made on any thread while
/// the tool is edited. The solids are those of SolidMeshes to the last bit.
struct SolidLoops
{
    /// The upper caps of the inner solid, without repeats; the only solid without a clearance.
    Loops inner;
    /// Those of the outer solid.
    Loops outer;
    /// From the bottom to the top.
    UVector3<float> extrudeVector;
    bool hasClearance = false;

    bool operator==(SolidLoops const&) const = default;

    /// Nothing to cut with where the outlines tell of a problem.
    static SolidLoops of(VolumeOutline const& outline);

    /// The solids to cut with: with a clearance the inner one, unless it has no vertices, and the
    /// outer one; else the one that there is, which may have no vertices.
    ///
    /// cost  that of ears, for each loop twice
    std::vector<std::unique_ptr<UMesh<float>>> solids() const;
};

/// The prisms below loops.
std::unique_ptr<UMesh<float>> prismsBelow(Loops const& top, UVector3<float> const& extrudeVector);

}  // namespace Freecut
