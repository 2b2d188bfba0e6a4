// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/MeshFacts.h"

#include "host/memory/HugePages.h"
#include "host/mesh/DisjointSets.h"
#include "host/mesh/JoinedPlaces.h"
#include "host/mesh/RecordIndex.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <span>

namespace {

using Place = std::uint32_t;
using Corners = std::vector<std::array<Place, 3>>;

/// A triangle's side as seen from its corner of smaller place.
struct Side
{
    Place other;
    Place triangle : 31;
    /// The triangle goes round from the smaller place to the other one.
    Place isForward : 1;

    bool operator<(Side const& o) const { return other < o.other; }
};

UVector3<double> middleOf(UBox3<float> const& box)
{
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    return {middle.X(), middle.Y(), middle.Z()};
}

std::vector<UPoint3<float>> pointsOf(UMesh<float> const& mesh, UMatrix4<float> const& placement)
{
    bool const isPlain = placement.isIdentity();
    std::vector<UPoint3<float>> points;
    reserveOnHugePages(points, mesh.vertices.size());
    for (UVertex<float> const* const vertex : mesh.vertices)
        points.push_back(isPlain ? vertex->cP() : placement * vertex->cP());
    return points;
}

Corners cornersOf(UMesh<float> const& mesh)
{
    RecordIndex<UVertex<float>> const place{mesh.vertices};
    Corners corners;
    reserveOnHugePages(corners, mesh.triangles.size());
    for (UTriangle<float> const* const t : mesh.triangles)
        corners.push_back({place(t->cV(0)), place(t->cV(1)), place(t->cV(2))});
    return corners;
}

/// Volume with cones to the box's middle, about which sums lose least, and area. Returns the sum of
/// the triangles' normals, each of twice the triangle's area; zero for a closed mesh.
UVector3<double> sumVolumeAndArea(std::span<UPoint3<float> const> points,
                                  std::span<std::array<Place, 3> const> corners, MeshFacts& facts)
{
    UVector3<double> const middle = middleOf(facts.box);
    auto const at = [&](Place place) {
        UPoint3<float> const& p = points[place];
        return UVector3<double>(p.X(), p.Y(), p.Z()) - middle;
    };
    UVector3<double> normals;
    for (auto const& [i, j, k] : corners) {
        UVector3<double> const a = at(i);
        UVector3<double> const normal = (at(j) - a) * (at(k) - a);
        facts.area += normal.GetLength() / 2;
        facts.volume += (a | normal) / 6;
        normals += normal;
    }
    return normals;
}

/// Goes over the sides of one corner's bucket: joins triangles that share an edge, which lowers the
/// number of shells, and counts the edges that are not as they are in a closed mesh.
void joinBucket(std::span<Side> bucket, DisjointSets& triangles, MeshFacts& facts)
{
    std::sort(bucket.begin(), bucket.end());
    for (std::size_t begin = 0; begin < bucket.size();) {
        std::size_t end = begin + 1;
        for (; end < bucket.size() && bucket[end].other == bucket[begin].other; ++end)
            if (triangles.unite(bucket[begin].triangle, bucket[end].triangle))
                --facts.shells;
        std::size_t const count = end - begin;
        facts.borderEdges += count == 1;
        facts.nonManifoldEdges += count > 2;
        facts.inconsistentEdges +=
            count == 2 && bucket[begin].isForward == bucket[begin + 1].isForward;
        begin = end;
    }
}

bool keepsItsCorners(std::array<Place, 3> const& corners)
{
    return corners[0] != corners[1] && corners[1] != corners[2] && corners[2] != corners[0];
}

/// Points at the same place become the first of them.
Corners joinedCorners(std::span<std::array<Place, 3> const> corners,
                      std::span<UPoint3<float> const> points)
{
    std::vector<Place> const places = joinedPlaces(points);
    Corners joined;
    reserveOnHugePages(joined, corners.size());
    for (auto const& [i, j, k] : corners)
        if (keepsItsCorners({places[i], places[j], places[k]}))
            joined.push_back({places[i], places[j], places[k]});
    return joined;
}

void joinShells(Corners const& corners, std::size_t vertexCount, MeshFacts& facts)
{
    std::vector<Place> ends(vertexCount + 1, 0);
    auto const eachSide = [&](auto const& visit) {
        for (Place t = 0; t < corners.size(); ++t)
            for (std::size_t i = 0; i < 3; ++i) {
                Place const from = corners[t][i];
                Place const to = corners[t][(i + 1) % 3];
                visit(std::min(from, to), Side{std::max(from, to), t, from < to});
            }
    };
    eachSide([&](Place low, Side const&) { ++ends[low + 1]; });
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<Side> sides;
    reserveOnHugePages(sides, corners.size() * 3);
    sides.resize(corners.size() * 3);
    eachSide([&](Place low, Side const& side) { sides[ends[low]++] = side; });

    DisjointSets triangles(corners.size());
    facts.shells = corners.size();
    Place begin = 0;
    for (std::size_t v = 0; v < vertexCount; ++v) {
        Place const end = ends[v];
        joinBucket(std::span(sides).subspan(begin, end - begin), triangles, facts);
        begin = end;
    }
    facts.closed = facts.openEdges() == 0 && !corners.empty();
}

}  // namespace

MeshFacts measureMesh(std::span<UPoint3<float> const> points,
                      std::span<std::array<Place, 3> const> triangles)
{
    MeshFacts facts;
    facts.triangles = triangles.size();
    facts.vertices = points.size();
    for (UPoint3<float> const& p : points)
        facts.box.Add(p);
    UVector3<double> const normals = sumVolumeAndArea(points, triangles, facts);
    joinShells(joinedCorners(triangles, points), points.size(), facts);
    if (!facts.closed)
        facts.volume += (middleOf(facts.box) | normals) / 6;
    return facts;
}

MeshFacts measureMesh(UMesh<float> const& mesh, UMatrix4<float> const& placement)
{
    MeshFacts facts = measureMesh(pointsOf(mesh, placement), cornersOf(mesh));
    // A reflection turns every triangle round, the solid stays where its inside was.
    if (placement.linearDeterminant() < 0)
        facts.volume = -facts.volume;
    return facts;
}

MeshFacts measureMesh(MeshKernel const& kernel)
{
    return measureMesh(*kernel.readMesh(), kernel.getMatrix());
}
