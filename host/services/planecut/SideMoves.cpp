// SPDX-License-Identifier: GPL-3.0-or-later
// The part of SideCopies that takes copies back, where vertices come to count as in the plane.
#include "host/services/boolean/FlatMap.h"
#include "host/services/planecut/SideCopies.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

#include <algorithm>
#include <bit>
#include <thread>

namespace {

using Vertex = UVertex<float>;
using Triangle = UTriangle<float>;

/// The percentage that copying ends with.
constexpr int copiesDone = 60;

constexpr std::size_t halfOf(int side)
{
    return side > 0 ? sideAbove : sideBelow;
}

/// Some vertices, by address: of a million that are asked for hardly any is one of them.
class VertexSet
{
public:
    explicit VertexSet(std::vector<Vertex const*> vertices)
        : m_vertices(std::move(vertices)), m_bits(std::bit_ceil(64 * m_vertices.size()) / 64)
    {
        std::sort(m_vertices.begin(), m_vertices.end());
        for (Vertex const* const vertex : m_vertices)
            m_bits[wordOf(vertex)] |= bitOf(vertex);
    }

    bool contains(Vertex const* vertex) const
    {
        return (m_bits[wordOf(vertex)] & bitOf(vertex)) != 0 &&
               std::binary_search(m_vertices.begin(), m_vertices.end(), vertex);
    }

private:
    static std::uint64_t hashOf(Vertex const* vertex)
    {
        return mixBits(reinterpret_cast<std::uintptr_t>(vertex));
    }
    std::size_t wordOf(Vertex const* vertex) const
    {
        return std::size_t(hashOf(vertex) >> 6) & (m_bits.size() - 1);
    }
    static std::uint64_t bitOf(Vertex const* vertex)
    {
        return std::uint64_t(1) << (hashOf(vertex) & 63);
    }

    std::vector<Vertex const*> m_vertices;
    /// One for each hash; at most one of 64 is set.
    std::vector<std::uint64_t> m_bits;
};

/// Deletes the records at the given places of a list, which ascend, and closes the gaps.
template <typename Record>
void eraseRecords(std::vector<Record*>& list, std::vector<std::size_t> const& places)
{
    if (places.empty())
        return;
    auto gap = list.begin() + std::ptrdiff_t(places.front());
    for (std::size_t i = 0; i < places.size(); ++i) {
        auto const surplus = list.begin() + std::ptrdiff_t(places[i]);
        auto const next =
            i + 1 < places.size() ? list.begin() + std::ptrdiff_t(places[i + 1]) : list.end();
        delete *surplus;
        gap = std::move(surplus + 1, next, gap);
    }
    list.erase(gap, list.end());
}

}  // namespace

void SideCopies::moveToPlane(std::vector<std::uint32_t> places)
{
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    std::vector<std::uint8_t> const isBlockTouched = blocksAt(places);
    takeTrianglesBack(places, isBlockTouched);
    takeVerticesBack(places);
}

/// By block of triangles: whether one of them has one of the vertices.
std::vector<std::uint8_t> SideCopies::blocksAt(std::vector<std::uint32_t> const& places) const
{
    std::vector<Vertex const*> vertices;
    for (std::uint32_t const place : places)
        vertices.push_back(m_source.vertices[place]);
    VertexSet const set(std::move(vertices));
    std::vector<std::uint8_t> isTouched(m_blockEnds.size(), 0);
    auto const caller = std::this_thread::get_id();
    using Range = tbb::blocked_range<std::size_t>;
    tbb::parallel_for(Range(0, isTouched.size(), 1), [&](Range const& range) {
        for (std::size_t b = range.begin(); b != range.end(); ++b) {
            if (m_progress && std::this_thread::get_id() == caller)
                m_progress(copiesDone);
            auto const at = [&](std::size_t t) {
                return m_source.triangles.begin() + std::ptrdiff_t(t);
            };
            isTouched[b] = std::any_of(at(b == 0 ? 0 : m_blockEnds[b - 1].triangles),
                                       at(m_blockEnds[b].triangles), [&](Triangle const* t) {
                                           return set.contains(t->cV(0)) ||
                                                  set.contains(t->cV(1)) || set.contains(t->cV(2));
                                       });
        }
    });
    return isTouched;
}

/// What becomes of a block of triangles when vertices move to the plane.
struct SideCopies::Taken
{
    std::vector<std::uint32_t> const& places;
    std::vector<Triangle const*> meeting;
    /// Places of copies in the lists of both sides.
    std::array<std::vector<std::size_t>, 2> surplus;
};

void SideCopies::takeBlockBack(BlockEnd const& begin, BlockEnd const& end, Taken& taken) const
{
    auto const isMoved = [&](std::uint32_t place) {
        return std::binary_search(taken.places.begin(), taken.places.end(), place);
    };
    std::array<std::size_t, 2> next = begin.copied;
    for (std::size_t t = begin.triangles; t < end.triangles; ++t) {
        Triangle const* const triangle = m_source.triangles[t];
        Places const corners{m_place(triangle->cV(0)), m_place(triangle->cV(1)),
                             m_place(triangle->cV(2))};
        int const side = m_sides[corners[0]];
        bool const isCopied =
            side != 0 && m_sides[corners[1]] == side && m_sides[corners[2]] == side;
        bool const isSurplus = isCopied && std::any_of(corners.begin(), corners.end(), isMoved);
        std::size_t const half = halfOf(side);
        if (isSurplus)
            taken.surplus[half].push_back(next[half]);
        next[half] += isCopied;
        if (!isCopied || isSurplus)
            taken.meeting.push_back(triangle);
    }
}

void SideCopies::takeTrianglesBack(std::vector<std::uint32_t> const& places,
                                   std::vector<std::uint8_t> const& isBlockTouched)
{
    Taken taken{places, {}, {}};
    taken.meeting.reserve(m_meeting.size() + 8 * places.size());
    BlockEnd begin;
    for (std::size_t b = 0; b < m_blockEnds.size(); ++b) {
        BlockEnd const end = m_blockEnds[b];
        if (isBlockTouched[b] != 0)
            takeBlockBack(begin, end, taken);
        else
            taken.meeting.insert(taken.meeting.end(),
                                 m_meeting.begin() + std::ptrdiff_t(begin.meeting),
                                 m_meeting.begin() + std::ptrdiff_t(end.meeting));
        for (std::size_t half = 0; half < 2; ++half)
            m_blockEnds[b].copied[half] -= taken.surplus[half].size();
        m_blockEnds[b].meeting = taken.meeting.size();
        begin = end;
    }
    m_meeting = std::move(taken.meeting);
    for (std::size_t half = 0; half < 2; ++half) {
        if (isWanted(CutSide(half)))
            eraseRecords(m_meshes[half]->triangles, taken.surplus[half]);
        m_counts[half] -= taken.surplus[half].size();
    }
}

void SideCopies::takeVerticesBack(std::vector<std::uint32_t> const& places)
{
    std::array<std::vector<std::size_t>, 2> surplus;
    std::array<std::size_t, 2> before{};
    std::size_t v = 0;
    for (std::uint32_t const place : places) {
        for (; v < place; ++v) {
            before[sideAbove] += m_sides[v] > 0;
            before[sideBelow] += m_sides[v] < 0;
        }
        if (m_sides[place] == 0)
            continue;
        std::size_t const half = halfOf(m_sides[place]);
        surplus[half].push_back(before[half]);
    }
    for (std::size_t half = 0; half < 2; ++half)
        if (isWanted(CutSide(half)))
            eraseRecords(m_meshes[half]->vertices, surplus[half]);
    for (std::uint32_t const place : places) {
        m_sides[place] = 0;
        m_copies[place] = nullptr;
    }
}
