// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorProgress.h"
#include "platform/geometry/UPoint3.h"

#include <cstdint>
#include <span>
#include <vector>

class PlaneFrame;
struct PlacedMesh;

/// Rays that start in a section plane and run along its normal N or against it, and how far each
/// runs through the material of a part before it leaves it.
class AxisRays
{
public:
    /// starts  points of the plane, in space
    /// poll    may be empty
    /// throws  what the poll throws
    /// cost    one pass over the part's triangles; those beside the rays are only looked at
    AxisRays(PlaneFrame const& frame, std::span<UPoint3<float> const> starts,
             PlacedMesh const& part, ConnectorProgress::Poll const& poll = {});

    /// Millimetres of material along N from a start; 0 if it does not lie in material.
    double above(std::size_t ray) const { return reach(ray, 1); }
    /// The same against N.
    double below(std::size_t ray) const { return reach(ray, -1); }

private:
    /// Where a ray meets the surface.
    struct Hit
    {
        std::uint32_t ray;
        /// Along N, from the plane.
        double height;
        /// 1 where the surface faces along N, else -1.
        int facing;

        bool operator<(Hit const& o) const
        {
            return ray != o.ray ? ray < o.ray : height < o.height;
        }
    };

    double reach(std::size_t ray, int direction) const;
    std::span<Hit const> hitsOf(std::size_t ray) const;

    std::vector<Hit> m_hits;
};
