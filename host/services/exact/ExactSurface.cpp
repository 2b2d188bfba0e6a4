// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/exact/ExactSurface.h"

#include "host/services/repair/OrientationMending.h"

#include <CGAL/boost/graph/helpers.h>

#include <cmath>
#include <cstring>

namespace {

constexpr std::uint32_t noPatch = 0xffffffff;

/// The double between two neighbouring floats.
double between(float low, float high)
{
    return (double(low) + double(high)) / 2;
}

bool hasEvenBit(float value)
{
    std::uint32_t bits = 0;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits % 2 == 0;
}

}  // namespace

bool ExactSurface::build(MeshArrays arrays, StageProgress& progress)
{
    origins.resize(arrays.points.size());
    for (std::uint32_t i = 0; i < origins.size(); ++i)
        origins[i] = i;
    for (std::uint32_t source : splitFans(arrays, progress))
        origins.push_back(source);
    mesh.reserve(arrays.points.size(), 3 * arrays.triangles.size() / 2, arrays.triangles.size());
    for (MeshArrays::Point const& p : arrays.points) {
        if (!std::isfinite(p.X()) || !std::isfinite(p.Y()) || !std::isfinite(p.Z()))
            return false;
        mesh.add_vertex(ExactKernel::Point_3(p.X(), p.Y(), p.Z()));
    }
    for (std::size_t t = 0; t < arrays.triangles.size(); ++t) {
        if (t % 4096 == 0)
            progress.add(0);
        MeshArrays::Corners const& c = arrays.triangles[t];
        if (mesh.add_face(Vertex(c[0]), Vertex(c[1]), Vertex(c[2])) == Mesh::null_face())
            return false;
    }
    isShared = mesh.add_property_map<Mesh::Edge_index, bool>("e:shared", false).first;
    return CGAL::is_closed(mesh);
}

std::vector<std::uint32_t> ExactSurface::patches(std::vector<Face>& representatives,
                                                 StageProgress& progress) const
{
    std::vector<std::uint32_t> patchOf(mesh.number_of_faces() + mesh.number_of_removed_faces(),
                                       noPatch);
    std::vector<Face> open;
    for (Face seed : mesh.faces()) {
        if (patchOf[seed] != noPatch)
            continue;
        progress.add(0);
        std::uint32_t const patch = std::uint32_t(representatives.size());
        representatives.push_back(seed);
        patchOf[seed] = patch;
        open.push_back(seed);
        while (!open.empty()) {
            Face const face = open.back();
            open.pop_back();
            for (Halfedge side : mesh.halfedges_around_face(mesh.halfedge(face))) {
                Face const next = mesh.face(mesh.opposite(side));
                if (isShared[mesh.edge(side)] || patchOf[next] != noPatch)
                    continue;
                patchOf[next] = patch;
                open.push_back(next);
            }
        }
    }
    return patchOf;
}

std::array<ExactSurface::Vertex, 3> ExactSurface::corners(Face face) const
{
    Halfedge const first = mesh.halfedge(face);
    return {mesh.source(first), mesh.target(first), mesh.target(mesh.next(first))};
}

ExactKernel::Triangle_3 ExactSurface::triangle(Face face) const
{
    auto const [a, b, c] = corners(face);
    return {mesh.point(a), mesh.point(b), mesh.point(c)};
}

float nearestFloat(ExactKernel::FT const& number)
{
    auto range = CGAL::to_interval(number);
    if (float(range.first) == float(range.second))
        return float(range.first);
    number.exact();
    range = CGAL::to_interval(number);
    float const low = float(range.first);
    float const high = float(range.second);
    if (low == high)
        return low;
    // The range is now at most one step of double wide, and so the floats are neighbours.
    auto const side = CGAL::compare(number, ExactKernel::FT(between(low, high)));
    if (side == CGAL::EQUAL)
        return hasEvenBit(low) ? low : high;
    return side == CGAL::SMALLER ? low : high;
}
