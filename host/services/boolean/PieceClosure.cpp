// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/PieceClosure.h"

#include "host/services/boolean/PlaceKey.h"
#include "host/services/boolean/SignedEdge.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

#include <array>
#include <functional>

namespace {

/// The sum of `edgesOf(i)` for numbers below `count`, on all cores: whole numbers add up to the same
/// in any order.
template <typename EdgesOf>
std::uint64_t sumOf(std::size_t count, EdgesOf const& edgesOf, StageProgress& progress)
{
    using Range = tbb::blocked_range<std::size_t>;
    return tbb::parallel_reduce(
        Range(0, count, 4096), std::uint64_t(0),
        [&](Range const& range, std::uint64_t sum) {
            for (std::size_t i = range.begin(); i != range.end(); ++i)
                sum += edgesOf(i);
            progress.add(0);
            return sum;
        },
        std::plus<>());
}

std::uint64_t edgesOf(std::uint32_t a, std::uint32_t b, std::uint32_t c)
{
    return signedEdge(a, b) + signedEdge(b, c) + signedEdge(c, a);
}

std::uint64_t edgesAtPlaces(UPoint3<float> const& a, UPoint3<float> const& b,
                            UPoint3<float> const& c)
{
    std::array<PlaceKey, 3> const keys{placeKey(a), placeKey(b), placeKey(c)};
    std::array<std::uint64_t, 3> const hashes{PlaceHash()(keys[0]), PlaceHash()(keys[1]),
                                              PlaceHash()(keys[2])};
    std::uint64_t sum = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        std::size_t const l = k == 2 ? 0 : k + 1;
        bool const isUpward = keys[k] < keys[l];
        std::uint64_t const number =
            isUpward ? mixBits(hashes[k] + 3 * hashes[l]) : mixBits(hashes[l] + 3 * hashes[k]);
        sum += isUpward ? number : keys[k] == keys[l] ? 0 : -number;
    }
    return sum;
}

}  // namespace

bool areClosed(std::span<MeshArrays::Corners const> triangles, StageProgress& progress)
{
    auto const edges = [&](std::size_t i) {
        auto const& [a, b, c] = triangles[i];
        return edgesOf(a, b, c);
    };
    return sumOf(triangles.size(), edges, progress) == 0;
}

bool PieceClosure::closes(std::uint64_t copied, std::span<PieceTriangle const> made,
                          StageProgress& progress) const
{
    auto const edges = [&](std::size_t i) {
        auto const& [a, b, c] = made[i].corners;
        return edgesOf(inPart(a), inPart(b), inPart(c));
    };
    return copied + sumOf(made.size(), edges, progress) == 0;
}

bool closesByPlaces(UMesh<float> const& copied, std::span<PieceTriangle const> made,
                    std::span<UPoint3<float> const> places, StageProgress& progress)
{
    std::uint64_t const ofCopied = sumOf(
        copied.triangles.size(),
        [&](std::size_t i) {
            UTriangle<float> const& t = *copied.triangles[i];
            return edgesAtPlaces(t.cP(0), t.cP(1), t.cP(2));
        },
        progress);
    std::uint64_t const ofMade = sumOf(
        made.size(),
        [&](std::size_t i) {
            MeshArrays::Corners const& c = made[i].corners;
            return edgesAtPlaces(places[c[0]], places[c[1]], places[c[2]]);
        },
        progress);
    return ofCopied + ofMade == 0;
}
