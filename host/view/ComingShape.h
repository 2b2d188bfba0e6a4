// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/PartShape.h"
#include "host/view/SurfaceUpload.h"

/// A large shape on its way to the device.
///
/// thread  that of the view, with its context current
class ComingShape
{
public:
    ComingShape(DrawDevice& device, std::unique_ptr<PartSurface> surface,
                PartShape::Mesh const& mesh);

    /// Whether a surface is so large that it is brought over in steps.
    static bool isWorthIt(PartSurface const& surface);

    bool isOf(PartShape::Mesh const& mesh) const;
    /// The records have changed: nobody needs it any more. Needs no context.
    void forget() { m_mesh.reset(); }

    /// Goes on for some milliseconds. Returns true when all is there, or nobody has the mesh now.
    bool step();
    /// Null until all is there.
    std::shared_ptr<PartShape> const& shape() const { return m_shape; }
    bool isUnderWay() const { return !m_shape && !m_mesh.expired(); }

private:
    std::unique_ptr<PartSurface> m_surface;
    std::weak_ptr<UMesh<float> const> m_mesh;
    std::size_t m_triangles;
    SurfaceUpload m_upload;
    std::shared_ptr<PartShape> m_shape;
};
