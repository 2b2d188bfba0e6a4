// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/WindingField.h"
#include "host/services/boolean/PlaceKey.h"

#include <memory>
#include <vector>

/// Some triangles as a mesh, one vertex at each place. Several such meshes share the numbers of
/// their vertices.
class PlacedTriangles
{
public:
    /// places, points  shared; borrowed
    PlacedTriangles(PointsByPlace& places, std::vector<MeshArrays::Point>& points)
        : m_places(places), m_points(points)
    {}

    /// What has a coordinate that is no number bounds nothing and is left out.
    void add(MeshArrays const& from, std::vector<std::uint32_t> const& triangles,
             StageProgress& progress);

    /// To be called once all is there, in all that share the points.
    void makeField(StageProgress& progress);

    double windingAt(WindingField::Place const& place) const { return m_field->at(place); }

    MeshArrays mesh;

private:
    PointsByPlace& m_places;
    std::vector<MeshArrays::Point>& m_points;
    TopologyReport m_topology;
    std::unique_ptr<TriangleTree> m_tree;
    std::unique_ptr<WindingField> m_field;
};
