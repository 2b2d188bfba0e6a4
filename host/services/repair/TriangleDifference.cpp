// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/repair/TriangleDifference.h"

#include "host/services/boolean/PlaceKey.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <bit>

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
