// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/EdgeGroups.h"
#include "host/services/VertexStars.h"
#include "host/services/repair/CrossingResolver.h"

#include <algorithm>

/// Finds the triangles that go on beside facets which are not wanted.
class CrossingResolver::Flood
{
public:
    Flood(CrossingResolver& resolver, StageProgress& progress)
        : m_resolver(resolver),
          m_stars(resolver.m_mesh, progress),
          m_progress(progress),
          m_isPatchReached(resolver.m_patches.size(), 0),
          m_isReached(resolver.m_mesh.triangles.size(), 0)
    {}

    void run()
    {
        for (std::uint32_t patch = 0; patch < m_resolver.m_patches.size(); ++patch) {
            if (!isUnwanted(patch) || m_isPatchReached[patch])
                continue;
            m_origin = m_resolver.m_patches[patch].cluster;
            reach(patch);
            for (; !m_open.empty();) {
                if (++m_steps % 1024 == 0)
                    m_progress.add(0);
                std::uint32_t const halfEdge = m_open.back();
                m_open.pop_back();
                cross(halfEdge);
            }
        }
    }

private:
    bool isUnwanted(std::uint32_t patch) const { return m_resolver.m_patches[patch].wanted == 0; }

    void reach(std::uint32_t patch)
    {
        Patch const& p = m_resolver.m_patches[patch];
        m_resolver.m_links.emplace_back(m_origin, p.cluster);
        if (m_isPatchReached[patch])
            return;
        m_isPatchReached[patch] = 1;
        // What is buried on one side of an edge and wanted on the other does not fit together.
        if (!isUnwanted(patch) && m_resolver.m_clusters[p.cluster].fault == Fault::none)
            m_resolver.m_clusters[p.cluster].fault = Fault::gaps;
        if (isUnwanted(patch))
            m_open.insert(m_open.end(), p.rim.begin(), p.rim.end());
    }

    void cross(std::uint32_t halfEdge)
    {
        std::uint32_t const other = partnerOf(halfEdge);
        if (other == none)
            return;
        if (m_resolver.m_clusterOf.contains(other / 3)) {
            if (auto const found = m_resolver.m_patchAt.find(other);
                found != m_resolver.m_patchAt.end())
                reach(found->second);
            return;
        }
        std::uint32_t const triangle = other / 3;
        if (m_isReached[triangle])
            return;
        m_isReached[triangle] = 1;
        m_resolver.m_buried.emplace_back(triangle, m_origin);
        for (std::uint32_t k = 1; k < 3; ++k)
            m_open.push_back(3 * triangle + (other + k) % 3);
    }

    /// The half-edge across an edge at which exactly two triangles are that agree, or none.
    std::uint32_t partnerOf(std::uint32_t halfEdge) const
    {
        MeshArrays const& mesh = m_resolver.m_mesh;
        std::uint32_t const from = EdgeGroups::start(mesh, halfEdge);
        std::uint32_t const to = EdgeGroups::end(mesh, halfEdge);
        std::uint32_t partner = none;
        for (std::uint32_t const corner : m_stars.corners(from)) {
            if (corner / 3 == halfEdge / 3)
                continue;
            std::uint32_t const before = 3 * (corner / 3) + (corner + 2) % 3;
            if (EdgeGroups::end(mesh, corner) == to)
                return none;
            if (EdgeGroups::start(mesh, before) != to)
                continue;
            if (partner != none)
                return none;
            partner = before;
        }
        return partner;
    }

    CrossingResolver& m_resolver;
    VertexStars m_stars;
    StageProgress& m_progress;
    std::vector<std::uint8_t> m_isPatchReached;
    std::vector<std::uint8_t> m_isReached;
    std::vector<std::uint32_t> m_open;
    std::uint32_t m_origin = 0;
    std::size_t m_steps = 0;
};

void CrossingResolver::flood(StageProgress& progress)
{
    bool const isNeeded = std::any_of(m_patches.begin(), m_patches.end(), [](Patch const& patch) {
        return patch.wanted == 0 && !patch.rim.empty();
    });
    if (isNeeded)
        Flood(*this, progress).run();
}
