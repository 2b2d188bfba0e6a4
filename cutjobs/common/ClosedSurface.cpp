// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/common/ClosedSurface.h"

#include "platform/jobs/FlawException.h"
#include "platform/mesh/MeshKernel.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>
#include <tbb/parallel_sort.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <functional>

namespace ClosedSurface {

namespace {

using Mesh = UMesh<float>;
using Triangle = UTriangle<float>;
using Range = tbb::blocked_range<std::size_t>;

constexpr std::size_t grain = 8192;

/// A number of 64 bits as good as random for a place; both zeros are one.
std::uint64_t numberOf(UPoint3<float> const& p)
{
    auto const bits = [](float c) { return std::uint64_t(std::bit_cast<std::uint32_t>(c + 0.0f)); };
    std::uint64_t number = (bits(p.X()) << 32 | bits(p.Y())) * 0xd6e8feb86659fd93u;
    number = ((number ^ (number >> 32)) + bits(p.Z())) * 0x9e3779b97f4a7c15u;
    return number ^ (number >> 29);
}

using Places = std::array<std::uint64_t, 3>;

Places placesOf(Triangle const& triangle)
{
    return {numberOf(triangle.cP(0)), numberOf(triangle.cP(1)), numberOf(triangle.cP(2))};
}

/// The number of an edge: the negative one where it is run along backwards, and zero for one of no
/// length.
std::uint64_t numberOf(std::uint64_t from, std::uint64_t to)
{
    std::uint64_t const both = (from + to) * 0xff51afd7ed558ccdu;
    return (from - to) * ((both ^ (both >> 31)) | 1);
}

/// Whether the numbers of all edges add up to nothing, as they do where each is run along as often
/// one way as the other; that
/// the numbers of a mesh that is open do has no chance worth mentioning.
bool isClosed(Mesh const& mesh)
{
    return tbb::parallel_reduce(
               Range(0, mesh.triangles.size(), grain), std::uint64_t(0),
               [&](Range const& range, std::uint64_t sum) {
                   for (std::size_t t = range.begin(); t != range.end(); ++t) {
                       Places const p = placesOf(*mesh.triangles[t]);
                       sum += numberOf(p[0], p[1]) + numberOf(p[1], p[2]) + numberOf(p[2], p[0]);
                   }
                   return sum;
               },
               std::plus<>()) == 0;
}

/// A side of a triangle.
struct Side
{
    std::uint64_t low, high;
    /// Three times its triangle's place, plus the number of its first corner.
    std::size_t place;
    bool isForward;

    bool isSameEdge(Side const& o) const { return low == o.low && high == o.high; }
    bool operator<(Side const& o) const
    {
        return low != o.low ? low < o.low : high != o.high ? high < o.high : place < o.place;
    }
};

std::vector<Side> sidesOf(Mesh const& mesh)
{
    std::vector<Side> sides(3 * mesh.triangles.size());
    tbb::parallel_for(Range(0, mesh.triangles.size(), grain), [&](Range const& range) {
        for (std::size_t t = range.begin(); t != range.end(); ++t) {
            Places const p = placesOf(*mesh.triangles[t]);
            for (std::size_t k = 0; k < 3; ++k) {
                std::uint64_t const from = p[k], to = p[(k + 1) % 3];
                sides[3 * t + k] = {std::min(from, to), std::max(from, to), 3 * t + k, from < to};
            }
        }
    });
    tbb::parallel_sort(sides);
    return sides;
}

/// The sides of the mesh that have no partner run along the other way, in the order of the
/// triangles.
std::vector<Side> sidesLeftOver(Mesh const& mesh)
{
    std::vector<Side> const sides = sidesOf(mesh);
    std::vector<Side> left;
    for (std::size_t i = 0; i < sides.size();) {
        std::size_t end = i;
        std::ptrdiff_t forward = 0, backward = 0;
        for (; end < sides.size() && sides[end].isSameEdge(sides[i]); ++end)
            ++(sides[end].isForward ? forward : backward);
        std::ptrdiff_t surplus = sides[i].low == sides[i].high ? 0 : forward - backward;
        for (; i < end; ++i)
            if (surplus != 0 && sides[i].isForward == (surplus > 0)) {
                left.push_back(sides[i]);
                surplus += surplus > 0 ? -1 : 1;
            }
    }
    std::sort(left.begin(), left.end(),
              [](Side const& a, Side const& b) { return a.place < b.place; });
    return left;
}

}  // namespace

std::vector<Edge> missingEdges(Mesh const& mesh)
{
    std::vector<Edge> edges;
    if (isClosed(mesh))
        return edges;
    for (Side const& side : sidesLeftOver(mesh)) {
        Triangle const& triangle = *mesh.triangles[side.place / 3];
        int const corner = int(side.place % 3);
        edges.push_back({triangle.cP(Triangle::Next(corner)), triangle.cP(corner)});
    }
    return edges;
}

std::optional<UPoint3<float>> openPlace(Mesh const& mesh)
{
    std::vector<Edge> const edges = missingEdges(mesh);
    if (edges.empty())
        return {};
    return edges.front().second;
}

void requireClosed(MeshKernel const& piece, MeshKernel const& part)
{
    auto const mesh = piece.readMesh();
    auto const source = part.readMesh();
    if (mesh == source || isClosed(*mesh) || !isClosed(*source))
        return;
    UPoint3<float> const place = openPlace(*mesh).value();
    throw Mell::FlawException(
        QCoreApplication::translate("CutJobs",
                                    "A piece would be open near (%1, %2, %3), so it is not made. "
                                    "Move the cut a little.")
            .arg(double(place.X()))
            .arg(double(place.Y()))
            .arg(double(place.Z()))
            .toStdString(),
        place, true);
}

}  // namespace ClosedSurface
