// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "connectors/PlacedMesh.h"

#include <memory>

/// What a plane without end can touch of a part. A cut of it has the section that a cut of the whole
/// part has, to the last bit, at a fraction of the cost; its sides are of no use.
struct PlaneRibbon
{
    /// The triangles that meet the plane or come so near to it that rounding might make them, in
    /// the part's order, with the part's matrix.
    std::unique_ptr<MeshKernel> triangles;
    /// Between which heights over the plane, along its normal, the whole part lies, in millimetres;
    /// the lowest is above the highest for a part without triangles.
    double lowest;
    double highest;

    /// plane  the mesh of the plane
    /// poll   called often; may be empty; what it throws passes
    /// cost   one pass over the part
    static PlaneRibbon of(PlacedMesh const& part, MeshKernel const& plane,
                          ConnectorProgress::Poll const& poll = {});
};
