// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/TriangleDifference.h"

#include "host/services/boolean/PlaceKey.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <bit>
#include <unordered_map>

namespace {

using Range = tbb::blocked_range<std::size_t>;
constexpr std::size_t grain = 8192;

/// A number for each triangle that is the same for triangles on the same places. That two others
/// get the same one has odds of one in millions of millions.
std::vector<std::uint64_t> keysOf(MeshArrays const& mesh, Facing facing, StageProgress& progress)
{
    std::vector<std::uint64_t> places(mesh.points.size());
    tbb::parallel_for(Range(0, places.size(), grain), [&](Range const& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            places[i] = PlaceHash()(placeKey(mesh.points[i]));
        progress.add(0);
    });
    std::vector<std::uint64_t> keys(mesh.triangles.size());
    tbb::parallel_for(Range(0, keys.size(), grain), [&](Range const& range) {
        for (std::size_t t = range.begin(); t != range.end(); ++t)
            for (int k = 0; k < 3; ++k) {
                std::uint64_t const a = places[mesh.triangles[t][k]];
                std::uint64_t const b = places[mesh.triangles[t][(k + 1) % 3]];
                // A sum of what belongs to corners knows no order; one of directed edges does.
                keys[t] += facing == Facing::either ? mixBits(a) : mixBits(a + std::rotl(b, 23));
            }
        progress.add(0);
    });
    return keys;
}

/// Counts keys.
class KeyCounts
{
public:
    explicit KeyCounts(std::size_t expected)
        : m_keys(std::bit_ceil(2 * expected + 16), 0), m_counts(m_keys.size(), 0)
    {}

    void add(std::uint64_t key)
    {
        std::size_t const slot = slotOf(key);
        m_keys[slot] = key;
        ++m_counts[slot];
    }

    /// Takes one of a key away, if there is any.
    bool take(std::uint64_t key)
    {
        std::uint32_t& count = m_counts[slotOf(key)];
        if (count == 0)
            return false;
        --count;
        return true;
    }

private:
    std::size_t slotOf(std::uint64_t key) const
    {
        std::size_t const mask = m_keys.size() - 1;
        std::size_t slot = mixBits(key) & mask;
        // A slot whose count has come to nothing still holds its key.
        while (m_keys[slot] != key && m_keys[slot] != 0)
            slot = (slot + 1) & mask;
        return slot;
    }

    std::vector<std::uint64_t> m_keys;
    std::vector<std::uint32_t> m_counts;
};

/// Tells most places that are not among some at once.
class PlaceFilter
{
public:
    PlaceFilter(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles)
        : m_bits(std::bit_ceil(triangles.size() * 64 + 4096), false)
    {
        for (std::uint32_t const t : triangles)
            for (int k = 0; k < 3; ++k)
                m_bits[PlaceHash()(placeKey(mesh.point(t, k))) & (m_bits.size() - 1)] = true;
    }

    bool mayHave(std::uint64_t placeHash) const { return m_bits[placeHash & (m_bits.size() - 1)]; }

private:
    std::vector<bool> m_bits;
};

/// The keys, whichever way they face, of the kernel's triangles that have all corners on places
/// which the filter lets through; in the order of the triangles.
std::vector<std::uint64_t> keysThrough(PlaceFilter const& filter, MeshKernel const& kernel,
                                       StageProgress& progress)
{
    auto const mesh = kernel.readMesh();
    if (!mesh)
        return {};
    UMatrix4<float> const& matrix = kernel.getMatrix();
    bool const isPlain = matrix.isIdentity();
    std::vector<std::vector<std::uint64_t>> found((mesh->triangles.size() + grain - 1) / grain);
    tbb::parallel_for(Range(0, found.size(), 1), [&](Range const& range) {
        for (std::size_t block = range.begin(); block != range.end(); ++block) {
            std::size_t const end = std::min((block + 1) * grain, mesh->triangles.size());
            for (std::size_t t = block * grain; t < end; ++t) {
                std::uint64_t key = 0;
                bool isThrough = true;
                for (int k = 0; k < 3 && isThrough; ++k) {
                    UPoint3<float> const p = mesh->triangles[t]->cV(k)->cP();
                    std::uint64_t const place = PlaceHash()(placeKey(isPlain ? p : matrix * p));
                    isThrough = filter.mayHave(place);
                    key += mixBits(place);
                }
                if (isThrough)
                    found[block].push_back(key);
            }
            if (!progress.add(0))
                return;
        }
    });
    std::vector<std::uint64_t> keys;
    for (auto const& block : found)
        keys.insert(keys.end(), block.begin(), block.end());
    return keys;
}

bool areOnSamePlaces(MeshArrays const& a, std::size_t s, MeshArrays const& b, std::size_t t)
{
    for (int k = 0; k < 3; ++k)
        if (placeKey(a.point(s, k)) != placeKey(b.point(t, k)))
            return false;
    return true;
}

bool beginsWith(std::vector<MeshArrays::Point> const& points,
                std::vector<MeshArrays::Point> const& first)
{
    return points.size() >= first.size() && std::equal(first.begin(), first.end(), points.begin());
}

}  // namespace

std::vector<std::uint32_t> trianglesNotIn(MeshArrays const& mesh, MeshArrays const& other,
                                          Facing facing, StageProgress& progress)
{
    std::vector<std::uint64_t> const theirs = keysOf(other, facing, progress);
    KeyCounts counts(theirs.size());
    for (std::size_t t = 0; t < theirs.size(); ++t) {
        if (t % 65536 == 0)
            progress.add(0);
        counts.add(theirs[t]);
    }
    std::vector<std::uint64_t> const ours = keysOf(mesh, facing, progress);
    std::vector<std::uint32_t> found;
    for (std::size_t t = 0; t < ours.size(); ++t) {
        if (t % 65536 == 0)
            progress.add(0);
        if (!counts.take(ours[t]))
            found.push_back(std::uint32_t(t));
    }
    return found;
}

std::vector<std::uint32_t> trianglesNotIn(MeshArrays const& mesh,
                                          std::vector<std::uint32_t> const& some,
                                          MeshKernel const& other, StageProgress& progress)
{
    if (some.empty())
        return {};
    PlaceFilter const filter(mesh, some);
    std::vector<std::uint64_t> const theirs = keysThrough(filter, other, progress);
    KeyCounts theirCounts(theirs.size());
    for (std::uint64_t const key : theirs)
        theirCounts.add(key);
    std::vector<std::uint64_t> const ours = keysOf(subset(mesh, some), Facing::either, progress);
    std::vector<std::uint32_t> found;
    for (std::size_t i = 0; i < some.size(); ++i)
        if (!theirCounts.take(ours[i]))
            found.push_back(some[i]);
    return found;
}

std::vector<std::uint32_t> matchedInOrder(MeshArrays const& mesh, MeshArrays const& earlier,
                                          StageProgress& progress)
{
    std::size_t const count = mesh.triangles.size(), earlierCount = earlier.triangles.size();
    std::vector<std::uint32_t> matched(count, unmatched);
    // Where points have only been added, the same numbers are the same places.
    bool const areNumbersKept = beginsWith(mesh.points, earlier.points);
    auto const areSame = [&](std::size_t t, std::size_t e) {
        return t < count && e < earlierCount &&
               ((areNumbersKept && mesh.triangles[t] == earlier.triangles[e]) ||
                areOnSamePlaces(mesh, t, earlier, e));
    };
    // What is in vain, for triangles added before others, stays in proportion.
    std::size_t stepsLeft = 4 * earlierCount;
    for (std::size_t t = 0, next = 0; t < count && next < earlierCount; ++t) {
        if (t % 16384 == 0)
            progress.add(0);
        if (!areSame(t, next) && areSame(t + 1, next + 1)) {
            ++next;
            continue;
        }
        std::size_t place = next;
        for (; place < earlierCount && !areSame(t, place); ++place) {
            if (stepsLeft-- == 0)
                return matched;
            if (stepsLeft % 16384 == 0)
                progress.add(0);
        }
        if (place == earlierCount)
            continue;
        matched[t] = std::uint32_t(place);
        next = place + 1;
    }
    return matched;
}

MeshArrays subset(MeshArrays const& mesh, std::vector<std::uint32_t> const& triangles)
{
    MeshArrays part;
    std::unordered_map<std::uint32_t, std::uint32_t> numbers;
    for (std::uint32_t const t : triangles) {
        MeshArrays::Corners corners = mesh.triangles[t];
        for (std::uint32_t& corner : corners) {
            auto const [number, isNew] =
                numbers.try_emplace(corner, std::uint32_t(part.points.size()));
            if (isNew)
                part.points.push_back(mesh.points[corner]);
            corner = number->second;
        }
        part.triangles.push_back(corners);
    }
    return part;
}
