// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/SeparateFans.h"

#include "host/mesh/DisjointSets.h"
#include "host/services/Polling.h"
#include "host/services/VertexStars.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace {

using Index = std::uint32_t;

class FanSeparation
{
public:
    explicit FanSeparation(MeshArrays& mesh) : m_mesh(mesh) {}

    /// Whether the triangles at a vertex are one fan; false as well where that takes a closer look.
    /// Any thread.
    bool isOneFan(std::span<Index const> corners) const
    {
        return corners.size() < 2 || areChained(corners);
    }

    /// corners  all at a vertex, as VertexStars gives them
    bool separate(std::span<Index const> corners)
    {
        if (isOneFan(corners))
            return false;
        m_rim.clear();
        for (Index i = 0; i < corners.size(); ++i)
            for (Index const step : {1u, 2u})
                m_rim.emplace_back(m_mesh.triangles[corners[i] / 3][(corners[i] % 3 + step) % 3],
                                   i);
        std::sort(m_rim.begin(), m_rim.end());
        DisjointSets fans(corners.size());
        std::size_t count = corners.size();
        for (std::size_t i = 1; i < m_rim.size(); ++i)
            if (m_rim[i].first == m_rim[i - 1].first)
                count -= fans.unite(m_rim[i].second, m_rim[i - 1].second);
        if (count > 1)
            giveVertices(corners, fans);
        return count > 1;
    }

private:
    /// Whether each triangle follows one before it across an edge at the vertex, as those of nearly
    /// all vertices do: then they are one fan. Spares the sorting.
    bool areChained(std::span<Index const> corners) const
    {
        constexpr std::size_t few = 16;
        if (corners.size() > few)
            return false;
        std::array<std::pair<Index, Index>, few> edges;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            MeshArrays::Corners const& t = m_mesh.triangles[corners[i] / 3];
            edges[i] = {t[(corners[i] + 1) % 3], t[(corners[i] + 2) % 3]};
        }
        for (std::size_t last = 0; last + 1 < corners.size(); ++last) {
            auto const rest = std::span(edges).subspan(last + 1, corners.size() - last - 1);
            auto const following =
                std::ranges::find(rest, edges[last].second, &std::pair<Index, Index>::first);
            if (following == rest.end())
                return false;
            std::swap(*following, rest.front());
        }
        return true;
    }

    /// The first fan keeps the vertex.
    void giveVertices(std::span<Index const> corners, DisjointSets& fans)
    {
        std::vector<Index> vertexOf(corners.size());
        for (Index i = 0; i < corners.size(); ++i) {
            Index& corner = m_mesh.triangles[corners[i] / 3][corners[i] % 3];
            Index const fan = fans.root(i);
            if (fan != i)
                vertexOf[i] = vertexOf[fan];
            else if (i == 0)
                vertexOf[i] = corner;
            else {
                vertexOf[i] = Index(m_mesh.points.size());
                UPoint3<float> const place = m_mesh.points[corner];
                m_mesh.points.push_back(place);
            }
            corner = vertexOf[i];
        }
    }

    MeshArrays& m_mesh;
    /// The other corners of the triangles at a vertex, each with the place of the triangle.
    std::vector<std::pair<Index, Index>> m_rim;
};

}  // namespace

bool separateFans(MeshArrays& mesh, StageProgress& progress)
{
    VertexStars const stars(mesh, progress);
    FanSeparation separation(mesh);
    using Range = tbb::blocked_range<std::size_t>;
    auto const doubtful = tbb::parallel_reduce(
        Range(0, stars.vertexCount(), 4096), std::vector<std::size_t>(),
        [&](Range const& range, std::vector<std::size_t> found) {
            for (std::size_t vertex = range.begin(); vertex != range.end(); ++vertex)
                if (!separation.isOneFan(stars.corners(vertex)))
                    found.push_back(vertex);
            progress.add(0);
            return found;
        },
        [](std::vector<std::size_t> before, std::vector<std::size_t> const& after) {
            before.insert(before.end(), after.begin(), after.end());
            return before;
        });
    // Triangles at one edge are in one fan at both of its ends, so that none falls apart where another
    // is given a vertex.
    Polling polling(progress);
    bool isChanged = false;
    for (std::size_t const vertex : doubtful) {
        polling.step();
        isChanged |= separation.separate(stars.corners(vertex));
    }
    return isChanged;
}
