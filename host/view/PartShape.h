// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DrawDevice.h"

#include <memory>

class StandInShape;

/// The surface of a mesh on the device, for all parts of a view that have the mesh.
///
/// thread  that of the view, with its context current
struct PartShape
{
    using Mesh = std::shared_ptr<UMesh<float> const>;

    PartShape(DrawDevice& device, PartSurface const& surface, Mesh const& source);
    /// uploaded  the surface, on the device
    PartShape(std::unique_ptr<DrawDevice::Geometry> uploaded, PartSurface const& surface,
              Mesh const& source);
    ~PartShape();

    std::size_t triangles() const { return m_triangles; }
    /// Made from the mesh, which has kept its number of triangles.
    bool isOf(Mesh const& other) const;

    std::unique_ptr<DrawDevice::Geometry> geometry;
    /// As PartSurface has them.
    double meanEdge;
    bool isSolid;
    UBox3<float> box;
    std::size_t bytes;
    /// Reset when the records have changed.
    std::weak_ptr<UMesh<float> const> mesh;
    /// What is drawn while the mouse moves; null until it is made.
    std::shared_ptr<StandInShape> standIn;
    bool isStandInAsked = false;
    /// Asked for, and neither there nor given up.
    bool isStandInComing = false;
    bool wasPainted = false;

private:
    std::size_t m_triangles;
};

/// A part as it was last painted.
struct PaintedPart
{
    std::shared_ptr<PartShape> shape;
    SurfaceLook look;
    QMatrix4x4 toWorld;
    /// How wide the cells are whose points were joined where a stand-in was drawn, in the
    /// coordinates of the mesh; 0 where all is exact.
    double coarseness = 0;
};
