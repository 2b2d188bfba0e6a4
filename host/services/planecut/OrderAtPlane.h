// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/CutPlane.h"

#include <functional>
#include <memory>
#include <vector>

/// A part whose triangles are in order where a plane meets it, with a corner of each triangle that
/// was not.
struct OrderedPart
{
    std::unique_ptr<UMesh<float>> mesh;
    std::vector<UPoint3<float>> turned;
    std::vector<UPoint3<float>> doubled;
};

/// Copies a part, puts its triangles in order where a plane meets them, so that a section closes
/// there, and leaves all others as they are.
///
/// Of triangles on the same three corners one is left out, the last of them first, where an odd
/// number of triangles use an edge there: two layers that lie on each other stay, and of a triangle
/// that lies there three times as many as around it have. Triangles that face the other way than most of
/// those that they hang together with over edges are turned, with all around them that face the
/// same way, so that no new place arises at which neighbours disagree.
///
/// part      vertices that lie in one place count as one
/// progress  may throw
/// returns   a mesh in the order of the part's; none where there is nothing to put in order
/// cost      some passes over the part
OrderedPart orderAtPlane(UMesh<float> const& part, CutPlane const& plane,
                         std::function<void(int)> const& progress);
