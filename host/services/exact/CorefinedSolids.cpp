// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/CorefinedSolids.h"

#include "host/services/Polling.h"
#include "host/services/SelfIntersections.h"
#include "host/services/exact/ExactSurface.h"
#include "host/services/exact/ExactWinding.h"
#include "host/services/exact/ResultMesh.h"
#include "host/services/exact/WantedResults.h"

#include <CGAL/Polygon_mesh_processing/corefinement.h>

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <map>

namespace Exact {

namespace {

namespace PMP = CGAL::Polygon_mesh_processing;

/// How often, and which way round, the faces of a patch belong to each result.
using Shares = ResultNumbers;

/// Asks for a cancel at every step of the corefinement that the library tells of.
struct CorefinementPolling : PMP::Corefinement::Default_visitor<ExactSurface::Mesh>
{
    StageProgress* progress = nullptr;
    void progress_filtering_intersections(double) const { progress->add(0); }
    void triangulating_faces_step() const { progress->add(1); }
    void intersection_of_coplanar_faces_step() const { progress->add(1); }
    void edge_face_intersections_step() const { progress->add(1); }
};

bool crossesItself(MeshArrays const& mesh, StageProgress& progress)
{
    TopologyReport const topology = checkTopology(mesh, progress);
    TriangleTree const tree(mesh, topology, progress);
    return findIntersections(mesh, topology, tree, progress).pairs > 0;
}

/// Two corefined surfaces, what lies where, and the results put together from their patches.
class Combination
{
public:
    Combination(MeshArrays const& first, MeshArrays const& second, StageProgress& progress)
        : m_first(withoutDegenerate(first, progress)),
          m_second(withoutDegenerate(second, progress)),
          m_progress(progress),
          m_aroundFirst(m_first, progress),
          m_aroundSecond(m_second, progress)
    {}

    CombinedSolids run(WantedSolids wanted)
    {
        if (!m_a.build(m_first, m_progress) || !m_b.build(m_second, m_progress))
            return {.fault = CombinationFault::operandNotClosed};
        if (crossesItself(m_second, m_progress))
            return {.fault = CombinationFault::operandCrossesItself};
        corefine();
        numberPoints();
        m_progress.begin(40, 45, 1);
        m_sharesOfA = sharesOfFirst();
        m_sharesOfB = sharesOfSecond();
        m_progress.begin(45, 50, 3);
        return wantedResults(wanted, [this](int ResultNumbers::*number, auto& result) {
            return assemble(number, result);
        });
    }

private:
    void corefine()
    {
        m_progress.begin(5, 40, m_first.triangles.size() + m_second.triangles.size());
        CorefinementPolling polling;
        polling.progress = &m_progress;
        PollingScope const scope(m_progress);
        using Points = PolledPointMap<ExactSurface::Mesh>;
        PMP::corefine(m_a.mesh, m_b.mesh,
                      CGAL::parameters::edge_is_constrained_map(m_a.isShared)
                          .vertex_point_map(Points(m_a.mesh.points()))
                          .visitor(polling)
                          .throw_on_self_intersection(true),
                      CGAL::parameters::edge_is_constrained_map(m_b.isShared)
                          .vertex_point_map(Points(m_b.mesh.points())));
    }

    std::uint32_t addPoint(ExactKernel::Point_3 const& p)
    {
        m_points.emplace_back(nearestFloat(p.x()), nearestFloat(p.y()), nearestFloat(p.z()));
        return std::uint32_t(m_points.size() - 1);
    }

    /// Gives each vertex its place in the results: that of the operand's vertex that it stands for,
    /// and one in common for the vertices of both surfaces at a point of a shared edge.
    void numberPoints()
    {
        std::map<ExactKernel::Point_3, std::uint32_t> shared;
        numberPoints(m_a, shared, m_placesOfA);
        numberPoints(m_b, shared, m_placesOfB);
    }

    void numberPoints(ExactSurface const& surface,
                      std::map<ExactKernel::Point_3, std::uint32_t>& shared,
                      std::vector<std::uint32_t>& places)
    {
        constexpr std::uint32_t unset = 0xffffffff;
        places.assign(surface.mesh.number_of_vertices(), unset);
        std::vector<bool> isShared(places.size(), false);
        Polling polling(m_progress);
        for (auto edge : surface.mesh.edges()) {
            polling.step();
            if (surface.isShared[edge])
                for (int k = 0; k < 2; ++k)
                    isShared[surface.mesh.vertex(edge, k)] = true;
        }
        for (ExactSurface::Vertex vertex : surface.mesh.vertices()) {
            m_progress.add(0);
            std::size_t const number = vertex;
            std::size_t const origin =
                number < surface.origins.size() ? surface.origins[number] : number;
            if (places[origin] == unset)
                places[origin] = isShared[vertex] ? placeOf(surface.mesh.point(vertex), shared)
                                                  : addPoint(surface.mesh.point(vertex));
            else if (isShared[vertex])
                shared.try_emplace(surface.mesh.point(vertex), places[origin]);
            places[number] = places[origin];
        }
    }

    std::uint32_t placeOf(ExactKernel::Point_3 const& point,
                          std::map<ExactKernel::Point_3, std::uint32_t>& shared)
    {
        auto const [place, isNew] = shared.try_emplace(point, 0);
        if (isNew)
            place->second = addPoint(point);
        return place->second;
    }

    std::vector<Shares> sharesOfFirst()
    {
        std::vector<ExactSurface::Face> faces;
        m_patchOfA = m_a.patches(faces, m_progress);
        std::vector<Shares> shares;
        for (ExactSurface::Face face : faces)
            shares.push_back(shareOfFirst(m_a.triangle(face)));
        return shares;
    }

    Shares shareOfFirst(ExactKernel::Triangle_3 const& face) const
    {
        auto const point = CGAL::centroid(face);
        auto const normal = face.supporting_plane().orthogonal_vector();
        auto const* const other = m_aroundSecond.triangleAt(point, m_progress);
        int const front = m_aroundSecond.beside(point, normal, m_progress) > 0;
        int const back = other ? m_aroundSecond.beside(point, -normal, m_progress) > 0 : front;
        if (front == back)
            return {.united = !front, .common = front, .difference = !front};
        // Both surfaces run here. The share is the step of the winding number from front to back.
        int const layers = m_aroundFirst.beside(point, normal, m_progress);
        return back ? Shares{.united = 1 - layers, .common = layers + 1, .difference = -layers}
                    : Shares{.united = layers, .common = -layers, .difference = layers + 1};
    }

    std::vector<Shares> sharesOfSecond()
    {
        std::vector<ExactSurface::Face> faces;
        m_patchOfB = m_b.patches(faces, m_progress);
        std::vector<Shares> shares;
        for (ExactSurface::Face face : faces)
            shares.push_back(shareOfSecond(m_b.triangle(face)));
        return shares;
    }

    Shares shareOfSecond(ExactKernel::Triangle_3 const& face) const
    {
        auto const point = CGAL::centroid(face);
        auto const normal = face.supporting_plane().orthogonal_vector();
        if (m_aroundFirst.triangleAt(point, m_progress))
            return {};
        auto const sides = m_aroundSecond.around(point, normal, m_progress);
        int const front = sides.front > 0, back = sides.behind > 0;
        if (front == back)
            return {};
        int const layers = m_aroundFirst.beside(point, normal, m_progress);
        int const way = back - front;
        return {.united = way * (1 - layers), .common = way * layers, .difference = -way * layers};
    }

    /// Returns false if the outcome is not closed.
    bool assemble(int Shares::*share, std::optional<MeshArrays>& result) const
    {
        m_progress.add(1);
        MeshArrays mesh;
        mesh.points = m_points;
        addFaces(m_a, m_patchOfA, m_placesOfA, m_sharesOfA, share, mesh);
        addFaces(m_b, m_patchOfB, m_placesOfB, m_sharesOfB, share, mesh);
        result = finishedResult(std::move(mesh), m_progress);
        return result.has_value();
    }

    void addFaces(ExactSurface const& surface, std::vector<std::uint32_t> const& patchOf,
                  std::vector<std::uint32_t> const& places, std::vector<Shares> const& shares,
                  int Shares::*share, MeshArrays& mesh) const
    {
        Polling polling(m_progress);
        for (ExactSurface::Face face : surface.mesh.faces()) {
            polling.step();
            int const count = shares[patchOf[face]].*share;
            auto const corners = surface.corners(face);
            MeshArrays::Corners triangle = {places[corners[0]], places[corners[1]],
                                            places[corners[2]]};
            if (count < 0)
                std::swap(triangle[1], triangle[2]);
            for (int i = 0; i < std::abs(count); ++i)
                mesh.triangles.push_back(triangle);
        }
    }

    MeshArrays m_first;
    MeshArrays m_second;
    StageProgress& m_progress;
    ExactWinding m_aroundFirst;
    ExactWinding m_aroundSecond;
    ExactSurface m_a;
    ExactSurface m_b;
    std::vector<MeshArrays::Point> m_points;
    std::vector<std::uint32_t> m_placesOfA, m_placesOfB;
    std::vector<std::uint32_t> m_patchOfA, m_patchOfB;
    std::vector<Shares> m_sharesOfA, m_sharesOfB;
};

}  // namespace

CombinedSolids combineCorefined(MeshArrays const& first, MeshArrays const& second,
                                WantedSolids wanted, StageProgress& progress)
{
    try {
        return Combination(first, second, progress).run(wanted);
    } catch (PMP::Corefinement::Self_intersection_exception const&) {
        return {.fault = CombinationFault::operandCrossesItself};
    } catch (std::exception const&) {
        // The library gives up on some inputs in this way.
        if (progress.hasThrown())
            throw;
        return {.fault = CombinationFault::resultNotClosed};
    }
}

}  // namespace Exact
