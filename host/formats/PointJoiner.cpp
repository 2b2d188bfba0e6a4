// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/PointJoiner.h"

#include "host/memory/HugePages.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

namespace Formats {
namespace {

/// Equal positions have equal bits after this: -0 + 0 is 0, and all other numbers stay.
UPoint3<float> withoutNegativeZero(UPoint3<float> const& p)
{
    return {p.X() + 0.0f, p.Y() + 0.0f, p.Z() + 0.0f};
}

/// One wide multiplication mixes all 96 bits: the product's two halves together depend on each.
std::uint32_t hashOf(UPoint3<float> const& p)
{
    __extension__ using Wide = unsigned __int128;
    auto const x = std::bit_cast<std::uint32_t>(p.X());
    auto const y = std::bit_cast<std::uint32_t>(p.Y());
    auto const z = std::bit_cast<std::uint32_t>(p.Z());
    std::uint64_t const a = (std::uint64_t(y) << 32 | x) ^ 0x9e3779b97f4a7c15u;
    std::uint64_t const b = z * 0xd6e8feb86659fd93u ^ 0xa0761d6478bd642fu;
    Wide const product = Wide(a) * b;
    std::uint64_t const mixed = std::uint64_t(product >> 64) ^ std::uint64_t(product);
    return std::uint32_t(mixed >> 32) ^ std::uint32_t(mixed);
}

/// All coordinates in one comparison, without a branch for each.
bool haveSameBits(UPoint3<float> const& p, UPoint3<float> const& q)
{
    auto const bits = [](float value) { return std::bit_cast<std::uint32_t>(value); };
    return ((bits(p.X()) ^ bits(q.X())) | (bits(p.Y()) ^ bits(q.Y())) |
            (bits(p.Z()) ^ bits(q.Z()))) == 0;
}

bool isFinite(UPoint3<float> const& p)
{
    return std::isfinite(p.X()) && std::isfinite(p.Y()) && std::isfinite(p.Z());
}

/// Half of the slots are taken at most.
std::size_t tableSizeFor(std::size_t vertices)
{
    return vertices * 2;
}

}  // namespace

void PointJoiner::Free::operator()(void* memory) const
{
    std::free(memory);
}

PointJoiner::PointJoiner(UMesh<float>& mesh, std::size_t expectedVertices) : m_mesh(mesh)
{
    // With room for a batch that brings no new point at all.
    reserve(expectedVertices + expectedVertices / 64 + 1024);
}

PointJoiner::~PointJoiner() = default;

UVertex<float>* PointJoiner::join(UPoint3<float> const& point)
{
    reserve(m_mesh.vertices.size() + 1);
    UPoint3<float> const p = withoutNegativeZero(point);
    return find(p, hashOf(p));
}

std::size_t PointJoiner::join(std::span<UPoint3<float> const> points, UVertex<float>** joined)
{
    std::size_t done = 0;
    while (done < points.size()) {
        auto const batch = points.subspan(done, std::min(batchSize, points.size() - done));
        std::size_t const count = joinBatch(batch, joined + done);
        done += count;
        if (count < batch.size())
            break;
    }
    return done;
}

std::size_t PointJoiner::joinBatch(std::span<UPoint3<float> const> points, UVertex<float>** joined)
{
    // The table entries, and then the vertices they name, are fetched into the cache for the whole
    // batch before the first of them is needed.
    reserve(m_mesh.vertices.size() + points.size());
    std::array<std::uint32_t, batchSize> hashes;
    for (std::size_t i = 0; i < points.size(); ++i) {
        hashes[i] = hashOf(withoutNegativeZero(points[i]));
        __builtin_prefetch(&m_table[slotOf(hashes[i])]);
    }
    for (std::size_t i = 0; i < points.size() && !m_mesh.vertices.empty(); ++i) {
        // An empty entry fetches the first vertex: cheaper than a branch that cannot be foreseen.
        std::uint32_t const place = m_table[slotOf(hashes[i])] & m_placeMask;
        __builtin_prefetch(m_mesh.vertices[place - (place != 0)]);
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        joined[i] = find(withoutNegativeZero(points[i]), hashes[i]);
        if (!joined[i])
            return i;
    }
    return points.size();
}

std::size_t PointJoiner::slotOf(std::uint32_t hash) const
{
    // A table of any size is addressed by a multiplication in place of a mask, so that it need not
    // be up to twice as large as the points require.
    return std::size_t(std::uint64_t(hash) * m_tableSize >> 32);
}

UVertex<float>* PointJoiner::find(UPoint3<float> const& point, std::uint32_t hash)
{
    std::uint32_t const tag = tagFor(hash);
    std::size_t slot = slotOf(hash);
    while (std::uint32_t const entry = m_table[slot]) {
        if (tagIn(entry) == tag) {
            UVertex<float>* const vertex = m_mesh.vertices[(entry & m_placeMask) - 1];
            if (haveSameBits(vertex->P(), point))
                return vertex;
        }
        if (++slot == m_tableSize)
            slot = 0;
    }
    return append(point, slot, tag);
}

UVertex<float>* PointJoiner::append(UPoint3<float> const& point, std::size_t slot,
                                    std::uint32_t tag)
{
    // Only finite points enter the table, so one that is not finite always comes here.
    if (!isFinite(point))
        return nullptr;
    auto* const vertex = new (m_records.take()) UVertex<float>(point);
    vertex->ID() = m_mesh.vertices.size();
    // reserve() has made room, so this does not throw and the record is not lost.
    m_mesh.vertices.push_back(vertex);
    m_table[slot] = tag | std::uint32_t(m_mesh.vertices.size());
    return vertex;
}

void PointJoiner::reserve(std::size_t vertices)
{
    if (vertices <= m_capacity)
        return;
    if (vertices >= std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    m_capacity = std::max(vertices, m_capacity + m_capacity / 2);
    m_mesh.vertices.reserve(m_capacity);
    if (m_mesh.vertices.empty())
        preferHugePages(m_mesh.vertices.data(), m_capacity * sizeof m_mesh.vertices[0]);
    rebuild(tableSizeFor(m_capacity));
}

void PointJoiner::rebuild(std::size_t size)
{
    // The old table goes first: its content can be had from the vertices.
    m_table.reset();
    m_table = makeTable(size);
    m_tableSize = size;
    m_placeMask = std::uint32_t(std::bit_ceil(std::uint64_t(m_capacity) + 1) - 1);
    for (std::size_t i = 0; i < m_mesh.vertices.size(); ++i) {
        std::uint32_t const hash = hashOf(m_mesh.vertices[i]->cP());
        std::size_t slot = slotOf(hash);
        while (m_table[slot] != 0)
            slot = slot + 1 == size ? 0 : slot + 1;
        m_table[slot] = tagFor(hash) | std::uint32_t(i + 1);
    }
}

PointJoiner::Table PointJoiner::makeTable(std::size_t size)
{
    // calloc hands out pages that the system has cleared, which are not touched before they are
    // used.
    void* const memory = std::calloc(size, sizeof(std::uint32_t));
    if (!memory)
        throw std::bad_alloc();
    preferHugePages(memory, size * sizeof(std::uint32_t));
    return Table(static_cast<std::uint32_t*>(memory));
}

}  // namespace Formats
