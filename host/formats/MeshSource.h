// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/MeshFormat.h"

#include <array>
#include <cmath>
#include <optional>

namespace Formats {

/// A part's geometry as it is to be written: with the kernel's matrix applied, and with the corners
/// in the order that keeps the outside outside when the matrix is a reflection.
class MeshSource
{
public:
    enum class Frame
    {
        Placed,
        /// As the records are, with the matrix left out.
        Local
    };

    explicit MeshSource(MeshKernel const& kernel, Frame frame = Frame::Placed);
    /// As the records are.
    explicit MeshSource(std::shared_ptr<UMesh<float> const> mesh) : m_mesh(std::move(mesh)) {}

    std::size_t triangleCount() const { return m_mesh->triangles.size(); }
    std::size_t vertexCount() const { return m_mesh->vertices.size(); }

    UPoint3<float> point(std::size_t vertex) const { return moved(m_mesh->vertices[vertex]->cP()); }

    /// Of a triangle: three positions, in order.
    std::array<UPoint3<float>, 3> corners(std::size_t triangle) const
    {
        UTriangle<float> const& t = *m_mesh->triangles[triangle];
        return {moved(t.cP(0)), moved(t.cP(m_second)), moved(t.cP(3 - m_second))};
    }

    /// Makes indices() possible. The vertices' identifiers are used where they are valid, else
    /// places are looked up: the mesh may be shared, so its identifiers must not be renewed here.
    void numberVertices();

    /// Of a triangle: three places in the vertex list, in order.
    std::array<std::uint32_t, 3> indices(std::size_t triangle) const;

    /// Fetches a triangle that will be asked for soon into the cache.
    void prefetch(std::size_t triangle) const
    {
        constexpr std::size_t recordsAhead = 24;
        constexpr std::size_t cornersAhead = 12;
        auto const& list = m_mesh->triangles;
        if (triangle + recordsAhead >= list.size())
            return;
        __builtin_prefetch(list[triangle + recordsAhead]);
        UTriangle<float> const& t = *list[triangle + cornersAhead];
        for (int i = 0; i < 3; ++i)
            __builtin_prefetch(t.cV(i));
    }

private:
    UPoint3<float> moved(UPoint3<float> const& p) const { return m_isMoved ? m_matrix * p : p; }

    std::shared_ptr<UMesh<float> const> m_mesh;
    UMatrix4<float> m_matrix;
    bool m_isMoved = false;
    int m_second = 1;
    /// Vertices with their places, sorted, when the identifiers are not these places.
    std::vector<std::pair<UVertex<float> const*, std::uint32_t>> m_places;
};

/// The unit normal of three corners, as UTriangle::ComputeNormalizedNormal gives it.
inline UVector3<float> unitNormal(std::array<UPoint3<float>, 3> const& corners)
{
    auto const& [a, b, c] = corners;
    double const ux = double(b.X()) - a.X();
    double const uy = double(b.Y()) - a.Y();
    double const uz = double(b.Z()) - a.Z();
    double const vx = double(c.X()) - a.X();
    double const vy = double(c.Y()) - a.Y();
    double const vz = double(c.Z()) - a.Z();
    double const x = uy * vz - uz * vy;
    double const y = uz * vx - ux * vz;
    double const z = ux * vy - uy * vx;
    double const length = std::sqrt(x * x + y * y + z * z);
    // Without a branch: a triangle of no area has x = y = z = 0.
    double const divisor = length > 0 ? length : 1;
    return {float(x / divisor), float(y / divisor), float(z / divisor)};
}

/// Triangles of all parts together.
std::uint64_t totalTriangles(std::span<NamedMesh const> parts);

/// Tells progress at every so many steps of a longer work.
class StepProgress
{
public:
    StepProgress(Progress const& progress, std::uint64_t total)
        : m_progress(progress), m_total(total)
    {}

    void step()
    {
        if ((m_done++ & (stepsPerCall - 1)) == 0 && m_progress)
            m_progress(int((m_done - 1) * 99 / m_total));
    }

private:
    static constexpr std::uint64_t stepsPerCall = 1 << 15;

    Progress const& m_progress;
    std::uint64_t m_total;
    std::uint64_t m_done = 0;
};

}  // namespace Formats
