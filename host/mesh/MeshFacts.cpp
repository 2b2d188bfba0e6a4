// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/MeshFacts.h"

#include "host/mesh/DisjointSets.h"
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
    Place triangle;

    bool operator<(Side const& o) const { return other < o.other; }
};

UVector3<double> middleOf(UBox3<float> const& box)
{
    UPoint3<float> const middle = (box.min + box.max) * 0.5f;
    return {middle.X(), middle.Y(), middle.Z()};
}

/// The points as seen from the middle of their box, about which sums lose least.
std::vector<UVector3<double>> pointsOf(UMesh<float> const& mesh, UMatrix4<float> const& placement,
                                       UBox3<float>& box)
{
    bool const isPlain = placement.isIdentity();
    std::vector<UVector3<double>> points;
    points.reserve(mesh.vertices.size());
    for (UVertex<float> const* const vertex : mesh.vertices) {
        UPoint3<float> const p = isPlain ? vertex->cP() : placement * vertex->cP();
        box.Add(p);
        points.emplace_back(p.X(), p.Y(), p.Z());
    }
    UVector3<double> const middle = middleOf(box);
    for (auto& p : points)
        p -= middle;
    return points;
}

Corners cornersOf(UMesh<float> const& mesh)
{
    RecordIndex<UVertex<float>> const place{mesh.vertices};
    Corners corners;
    corners.reserve(mesh.triangles.size());
    for (UTriangle<float> const* const t : mesh.triangles)
        corners.push_back({place(t->cV(0)), place(t->cV(1)), place(t->cV(2))});
    return corners;
}

/// Volume with cones to the box's middle, and area. Returns the sum of the triangles' normals, each
/// of twice the triangle's area; zero for a closed mesh.
UVector3<double> sumVolumeAndArea(std::span<UVector3<double> const> points, Corners const& corners,
                                  MeshFacts& facts)
{
    UVector3<double> normals;
    for (auto const& [i, j, k] : corners) {
        UVector3<double> const a = points[i];
        UVector3<double> const normal = (points[j] - a) * (points[k] - a);
        facts.area += normal.GetLength() / 2;
        facts.volume += (a | normal) / 6;
        normals += normal;
    }
    return normals;
}

/// Goes over the sides of one corner's bucket: joins triangles that share an edge, which lowers the
/// number of shells. Returns the number of edges with an odd number of triangles.
std::size_t joinBucket(std::span<Side> bucket, DisjointSets& triangles, std::size_t& shells)
{
    std::sort(bucket.begin(), bucket.end());
    std::size_t openEdges = 0;
    for (std::size_t begin = 0; begin < bucket.size();) {
        std::size_t end = begin + 1;
        for (; end < bucket.size() && bucket[end].other == bucket[begin].other; ++end)
            if (triangles.unite(bucket[begin].triangle, bucket[end].triangle))
                --shells;
        openEdges += (end - begin) % 2;
        begin = end;
    }
    return openEdges;
}

void joinShells(Corners const& corners, std::size_t vertexCount, MeshFacts& facts)
{
    std::vector<Place> ends(vertexCount + 1, 0);
    auto const eachSide = [&](auto const& visit) {
        for (Place t = 0; t < corners.size(); ++t)
            for (std::size_t i = 0; i < 3; ++i) {
                auto const [low, high] = std::minmax(corners[t][i], corners[t][(i + 1) % 3]);
                visit(Place(low), Side{Place(high), t});
            }
    };
    eachSide([&](Place low, Side const&) { ++ends[low + 1]; });
    std::partial_sum(ends.begin(), ends.end(), ends.begin());
    std::vector<Side> sides(corners.size() * 3);
    eachSide([&](Place low, Side const& side) { sides[ends[low]++] = side; });

    DisjointSets triangles(corners.size());
    facts.shells = corners.size();
    Place begin = 0;
    for (std::size_t v = 0; v < vertexCount; ++v) {
        Place const end = ends[v];
        facts.openEdges +=
            joinBucket(std::span(sides).subspan(begin, end - begin), triangles, facts.shells);
        begin = end;
    }
    facts.closed = facts.openEdges == 0 && !corners.empty();
}

}  // namespace

MeshFacts measureMesh(UMesh<float> const& mesh, UMatrix4<float> const& placement)
{
    MeshFacts facts;
    facts.triangles = mesh.triangles.size();
    facts.vertices = mesh.vertices.size();
    auto const points = pointsOf(mesh, placement, facts.box);
    Corners const corners = cornersOf(mesh);
    UVector3<double> const normals = sumVolumeAndArea(points, corners, facts);
    joinShells(corners, mesh.vertices.size(), facts);
    if (!facts.closed)
        facts.volume += (middleOf(facts.box) | normals) / 6;
    // A reflection turns every triangle round, the solid stays where its inside was.
    if (placement.linearDeterminant() < 0)
        facts.volume = -facts.volume;
    return facts;
}

MeshFacts measureMesh(MeshKernel const& kernel)
{
    return measureMesh(*kernel.readMesh(), kernel.getMatrix());
}
