// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/mesh/Topology.h"

#include <algorithm>
#include <span>
#include <utility>

namespace {

using Triangle = UTriangle<float>;

/// A triangle's edge as seen from its vertex of smaller place.
struct HalfEdge
{
    std::uint32_t other;
    bool isForward;
    char edge;
    Triangle* triangle;
};

void clearLinks(UMesh<float>& mesh)
{
    for (UVertex<float>* const vertex : mesh.vertices)
        vertex->VFp() = nullptr;
    for (Triangle* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i) {
            triangle->FFp(i) = nullptr;
            triangle->V(i)->VFp() = triangle;
        }
}

std::pair<std::uint32_t, std::uint32_t> endsOf(Triangle const& triangle, int edge)
{
    return {std::uint32_t(triangle.cV(edge)->cID()),
            std::uint32_t(triangle.cV(Triangle::Next(edge))->cID())};
}

/// All half-edges, grouped by smaller vertex in list order; group v ends at ends[v].
struct EdgeBuckets
{
    std::vector<HalfEdge> halfEdges;
    std::vector<std::uint32_t> ends;
};

EdgeBuckets bucketEdges(UMesh<float> const& mesh)
{
    EdgeBuckets buckets;
    std::vector<std::uint32_t>& place = buckets.ends;
    place.assign(mesh.vertices.size() + 1, 0);
    for (Triangle const* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i) {
            auto const [from, to] = endsOf(*triangle, i);
            ++place[std::min(from, to) + 1];
        }
    for (std::size_t v = 1; v < place.size(); ++v)
        place[v] += place[v - 1];
    buckets.halfEdges.resize(mesh.triangles.size() * 3);
    for (Triangle* const triangle : mesh.triangles)
        for (int i = 0; i < 3; ++i) {
            auto const [from, to] = endsOf(*triangle, i);
            buckets.halfEdges[place[std::min(from, to)]++] = {std::max(from, to), from < to,
                                                              char(i), triangle};
        }
    return buckets;
}

void link(HalfEdge& a, HalfEdge& b)
{
    a.triangle->FFp(a.edge) = b.triangle;
    a.triangle->FFi(a.edge) = b.edge;
    b.triangle->FFp(b.edge) = a.triangle;
    b.triangle->FFi(b.edge) = a.edge;
}

bool isFree(HalfEdge const& halfEdge)
{
    return halfEdge.triangle->FFp(halfEdge.edge) == nullptr;
}

/// Pairs the half-edges of one bucket. Vertices of high valence are sorted first, so that equal
/// edges stand together; small groups are searched as they are.
void linkBucket(std::span<HalfEdge> bucket)
{
    constexpr std::size_t searchLimit = 32;
    bool const isSorted = bucket.size() > searchLimit;
    if (isSorted)
        std::stable_sort(bucket.begin(), bucket.end(),
                         [](HalfEdge const& a, HalfEdge const& b) { return a.other < b.other; });
    for (std::size_t i = 0; i < bucket.size(); ++i) {
        HalfEdge& mine = bucket[i];
        if (!isFree(mine))
            continue;
        for (std::size_t k = i + 1; k < bucket.size(); ++k) {
            HalfEdge& candidate = bucket[k];
            if (isSorted && candidate.other != mine.other)
                break;
            if (candidate.other == mine.other && candidate.isForward != mine.isForward &&
                candidate.triangle != mine.triangle && isFree(candidate)) {
                link(mine, candidate);
                break;
            }
        }
    }
}

}  // namespace

bool isFullyLinked(UMesh<float> const& mesh)
{
    return std::all_of(mesh.triangles.begin(), mesh.triangles.end(), [](Triangle const* triangle) {
        return triangle->cFFp(0) && triangle->cFFp(1) && triangle->cFFp(2);
    });
}

void linkNeighbours(UMesh<float>& mesh, std::function<void(int)> const& progress)
{
    mesh.UpdateVertsID();
    clearLinks(mesh);
    EdgeBuckets buckets = bucketEdges(mesh);
    constexpr std::size_t step = 1 << 16;
    std::uint32_t begin = 0;
    for (std::size_t v = 0; v < mesh.vertices.size(); ++v) {
        if (progress && v % step == 0)
            progress(int(50 + 50 * v / mesh.vertices.size()));
        std::uint32_t const end = buckets.ends[v];
        linkBucket(std::span(buckets.halfEdges).subspan(begin, end - begin));
        begin = end;
    }
    if (progress)
        progress(100);
}
