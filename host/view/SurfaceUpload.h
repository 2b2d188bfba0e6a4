// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DrawDevice.h"

/// Brings a surface to the device in steps, so that the window can answer between them.
///
/// thread  that of the view, with its context current
class SurfaceUpload
{
public:
    using Vertices = std::span<PartSurface::Vertex const>;
    using Indices = std::span<std::uint32_t const>;

    /// The arrays stay where they are until all is uploaded.
    SurfaceUpload(DrawDevice& device, Vertices vertices, Indices indices);
    /// Of vertices that are on the device.
    SurfaceUpload(DrawDevice& device, DrawDevice::Geometry const& withVertices, Indices indices);

    /// Makes the room for the vertices, or uploads so many bytes more, or what is left.
    ///
    /// bytes  enough for a triangle
    /// Returns whether all is there.
    bool step(std::size_t bytes);

    /// Once all is there.
    std::unique_ptr<DrawDevice::Geometry> take() { return std::move(m_geometry); }

private:
    DrawDevice& m_device;
    Vertices m_vertices;
    Indices m_indices;
    std::size_t m_writtenVertices = 0;
    std::size_t m_writtenIndices = 0;
    std::unique_ptr<DrawDevice::Geometry> m_geometry;
};
