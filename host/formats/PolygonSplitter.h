// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshBuilder.h"
#include "platform/mesh/UVertex.h"

#include <span>
#include <vector>

namespace Formats {

/// Adds a polygon with any number of corners to a mesh as triangles over these corners, in their
/// orientation. All corners are kept, also those in a straight line, so that neighbours still fit.
/// Convex or not, by clipping ears in the plane of the polygon's area vector; a polygon that
/// crosses itself or has no area becomes a fan.
///
/// Ear clipping after G. H. Meisters, "Polygons have ears", 1975.
///
/// cost  linear for convex polygons, quadratic and worse for others
class PolygonSplitter
{
public:
    explicit PolygonSplitter(MeshBuilder& builder) : m_builder(builder) {}

    void add(std::span<UVertex<float>* const> corners);

private:
    struct Corner
    {
        UVertex<float>* vertex;
        double x;
        double y;
    };

    void project(std::span<UVertex<float>* const> corners);
    bool clipEar();
    bool isEar(std::size_t i) const;
    void addFan();
    std::size_t after(std::size_t i) const { return i + 1 == m_corners.size() ? 0 : i + 1; }
    std::size_t before(std::size_t i) const { return (i == 0 ? m_corners.size() : i) - 1; }

    MeshBuilder& m_builder;
    std::vector<Corner> m_corners;
    std::size_t m_next = 0;
};

}  // namespace Formats
