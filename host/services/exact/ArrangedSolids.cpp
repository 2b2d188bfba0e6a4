// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ArrangedSolids.h"

#include "host/services/EdgeGroups.h"
#include "host/services/Polling.h"
#include "host/services/exact/Arrangement.h"
#include "host/services/exact/ExactWinding.h"
#include "host/services/exact/ResultMesh.h"
#include "host/services/exact/WantedResults.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <memory>
#include <tuple>

namespace Exact {

namespace {

/// A winding number of each result at one place.
using Layers = ResultNumbers;

class ArrangedSolids
{
public:
    ArrangedSolids(MeshArrays const& first, MeshArrays const& second, StageProgress& progress)
        : m_first(withoutDegenerate(first, progress)),
          m_second(withoutDegenerate(second, progress)),
          m_progress(progress),
          m_aroundFirst(m_first, progress),
          m_aroundSecond(m_second, progress)
    {}

    CombinedSolids run(WantedSolids wanted)
    {
        if (!isClosedSolid(m_first, m_progress) || !isClosedSolid(m_second, m_progress))
            return {.fault = CombinationFault::operandNotClosed};
        joinOperands();
        m_progress.begin(50, 80, 1);
        m_arrangement = std::make_unique<Arrangement>(
            m_soup, std::uint32_t(m_first.triangles.size()), m_progress);
        Polling polling(m_progress);
        for (std::uint32_t i = 0; i < m_arrangement->pointCount(); ++i, polling.step())
            m_points.push_back(i < m_soup.points.size() ? m_soup.points[i]
                                                        : rounded(m_arrangement->point(i)));
        m_progress.begin(80, 95, 1);
        findPatches();
        measureSteps();
        m_progress.begin(95, 100, 3);
        return wantedResults(wanted, [this](int ResultNumbers::*number, auto& result) {
            return assemble(number, result);
        });
    }

private:
    static MeshArrays::Point rounded(ExactKernel::Point_3 const& p)
    {
        return {nearestFloat(p.x()), nearestFloat(p.y()), nearestFloat(p.z())};
    }

    /// One mesh of both, with one point at each place.
    void joinOperands()
    {
        std::vector<std::uint32_t> places;
        m_soup = m_first;
        std::uint32_t const base = std::uint32_t(m_first.points.size());
        m_soup.points.insert(m_soup.points.end(), m_second.points.begin(), m_second.points.end());
        for (MeshArrays::Corners const& c : m_second.triangles)
            m_soup.triangles.push_back({c[0] + base, c[1] + base, c[2] + base});
        std::map<std::tuple<float, float, float>, std::uint32_t> ids;
        Polling polling(m_progress);
        for (MeshArrays::Point const& p : m_soup.points) {
            polling.step();
            places.push_back(
                ids.try_emplace({p.X(), p.Y(), p.Z()}, std::uint32_t(places.size())).first->second);
        }
        for (MeshArrays::Corners& corners : m_soup.triangles)
            for (std::uint32_t& corner : corners)
                corner = places[corner];
    }

    /// Facets that follow each other over edges at which there are no others.
    void findPatches()
    {
        auto const& facets = m_arrangement->facets();
        MeshArrays mesh;
        mesh.points.resize(m_arrangement->pointCount());
        for (Arrangement::Facet const& facet : facets)
            mesh.triangles.push_back(facet.corners);
        EdgeGroups const edges(mesh, m_progress);
        constexpr std::uint32_t none = 0xffffffff;
        std::vector<std::array<std::uint32_t, 3>> neighbours(facets.size(), {none, none, none});
        for (std::size_t i = 0; i < edges.size(); ++i)
            if (edges[i].size() == 2 &&
                EdgeGroups::start(mesh, edges[i][0]) != EdgeGroups::start(mesh, edges[i][1])) {
                neighbours[edges[i][0] / 3][edges[i][0] % 3] = edges[i][1] / 3;
                neighbours[edges[i][1] / 3][edges[i][1] % 3] = edges[i][0] / 3;
            }
        m_patchOf.assign(facets.size(), none);
        std::vector<std::uint32_t> open;
        Polling polling(m_progress);
        for (std::uint32_t seed = 0; seed < facets.size(); ++seed) {
            polling.step();
            if (m_patchOf[seed] != none)
                continue;
            std::uint32_t const patch = std::uint32_t(m_seeds.size());
            m_seeds.push_back(seed);
            open.push_back(seed);
            m_patchOf[seed] = patch;
            while (!open.empty()) {
                std::uint32_t const facet = open.back();
                open.pop_back();
                for (std::uint32_t next : neighbours[facet])
                    if (next != none && m_patchOf[next] == none) {
                        m_patchOf[next] = patch;
                        open.push_back(next);
                    }
            }
        }
    }

    /// What each patch contributes: the step of the results' winding numbers from its front to its
    /// back.
    void measureSteps()
    {
        m_progress.setAmount(m_seeds.size());
        for (std::uint32_t seed : m_seeds) {
            m_progress.add(1);
            auto const& c = m_arrangement->facets()[seed].corners;
            auto const a = m_arrangement->point(c[0]), b = m_arrangement->point(c[1]),
                       d = m_arrangement->point(c[2]);
            auto const centre = CGAL::centroid(a, b, d);
            auto const normal = CGAL::cross_product(b - a, d - a);
            auto const first = m_aroundFirst.around(centre, normal, m_progress);
            auto const second = m_aroundSecond.around(centre, normal, m_progress);
            Layers const front = layersOf(first.front, second.front > 0);
            Layers const back = layersOf(first.behind, second.behind > 0);
            m_steps.push_back({back.united - front.united, back.common - front.common,
                               back.difference - front.difference});
        }
    }

    static Layers layersOf(int first, bool isInSecond)
    {
        return isInSecond ? Layers{1, first, 0} : Layers{first, 0, first};
    }

    bool assemble(int Layers::*step, std::optional<MeshArrays>& result) const
    {
        m_progress.add(1);
        MeshArrays mesh;
        mesh.points = m_points;
        auto const& facets = m_arrangement->facets();
        Polling polling(m_progress);
        for (std::size_t i = 0; i < facets.size(); ++i) {
            polling.step();
            int const count = m_steps[m_patchOf[i]].*step;
            MeshArrays::Corners corners = facets[i].corners;
            if (count < 0)
                std::swap(corners[1], corners[2]);
            for (int k = 0; k < std::abs(count); ++k)
                mesh.triangles.push_back(corners);
        }
        result = finishedResult(std::move(mesh), m_progress);
        return result.has_value();
    }

    MeshArrays m_first;
    MeshArrays m_second;
    StageProgress& m_progress;
    ExactWinding m_aroundFirst;
    ExactWinding m_aroundSecond;
    MeshArrays m_soup;
    std::unique_ptr<Arrangement> m_arrangement;
    std::vector<MeshArrays::Point> m_points;
    std::vector<std::uint32_t> m_patchOf;
    /// Per patch: one of its facets, and its steps.
    std::vector<std::uint32_t> m_seeds;
    std::vector<Layers> m_steps;
};

}  // namespace

CombinedSolids combineArranged(MeshArrays const& first, MeshArrays const& second,
                               WantedSolids wanted, StageProgress& progress)
{
    return ArrangedSolids(first, second, progress).run(wanted);
}

}  // namespace Exact
