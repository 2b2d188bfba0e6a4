// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/view/DrawTrace.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace {

/// The last steps of the generator of Steele, Lea and Flood, "Fast Splittable Pseudorandom Number
/// Generators" (2014).
std::uint64_t mixed(std::uint64_t x)
{
    x = (x ^ x >> 30) * 0xbf58476d1ce4e5b9u;
    x = (x ^ x >> 27) * 0x94d049bb133111ebu;
    return x ^ x >> 31;
}

std::uint64_t joined(std::uint64_t sum, std::uint64_t value)
{
    return mixed(sum * 0x9e3779b97f4a7c15u + mixed(value + 1));
}

}  // namespace

std::uint64_t DrawTrace::fingerprintOf(void const* data, std::size_t bytes)
{
    auto const* next = static_cast<unsigned char const*>(data);
    std::uint64_t sum = bytes;
    for (; bytes > 0;) {
        std::uint64_t value = 0;
        std::size_t const taken = std::min(bytes, sizeof value);
        std::memcpy(&value, next, taken);
        sum = joined(sum, value);
        next += taken;
        bytes -= taken;
    }
    return sum;
}

void DrawTrace::add(std::uint64_t value)
{
    m_fingerprint = joined(m_fingerprint, value);
}

void DrawTrace::add(QMatrix4x4 const& matrix)
{
    add(fingerprintOf(matrix.constData(), 16 * sizeof(float)));
}

bool DrawTrace::passSmall()
{
    std::size_t const place = m_cost++;
    return m_from <= place && place < m_to;
}

bool DrawTrace::passPoints(std::uint64_t identity, std::span<DrawRun const> runs,
                           QMatrix4x4 const& toClip)
{
    add(identity);
    for (DrawRun const& run : runs) {
        add(run.mode);
        add(std::uint64_t(run.first) << 32 | unsigned(run.count));
        add(run.rgba);
    }
    add(toClip);
    return passSmall();
}

bool DrawTrace::passCap(std::uint64_t identity, CapLook const& look, QMatrix4x4 const& toClip)
{
    add(identity);
    add(std::uint64_t(look.fill) << 32 | look.hatch);
    add(std::uint64_t(std::bit_cast<std::uint32_t>(look.hatchPitch)) << 1 | look.isMarked);
    add(toClip);
    return passSmall();
}

void DrawTrace::beginSurface(std::uint64_t identity, SurfaceLook const& look,
                             QMatrix4x4 const& toClip, QMatrix4x4 const& toEye)
{
    add(identity);
    add(std::uint64_t(look.front) << 32 | look.back);
    add(std::uint64_t(look.edges) << 4 | unsigned(look.isMirrored) << 3 |
        unsigned(look.isSolid) << 2 | unsigned(look.isMarked) << 1 | look.cut.has_value());
    if (look.cut)
        for (double const value :
             {look.cut->normal.X(), look.cut->normal.Y(), look.cut->normal.Z(), look.cut->offset})
            add(std::bit_cast<std::uint64_t>(value));
    add(toClip);
    add(toEye);
}

std::vector<IndexRange> DrawTrace::passFaces(std::span<IndexRange const> ranges)
{
    return pass(ranges, 1);
}

std::vector<IndexRange> DrawTrace::passEdges(std::span<IndexRange const> ranges)
{
    return pass(ranges, edgesCost);
}

// A triangle is let through where its cost begins.
std::vector<IndexRange> DrawTrace::pass(std::span<IndexRange const> ranges, std::size_t each)
{
    std::vector<IndexRange> passed;
    for (IndexRange const& range : ranges) {
        add(range.first);
        add(range.count);
        std::size_t const triangles = range.count / 3;
        auto const before = [&](std::size_t place) {
            return place <= m_cost ? 0 : std::min(triangles, (place - m_cost + each - 1) / each);
        };
        std::size_t const from = before(m_from), to = before(m_to);
        if (from < to)
            passed.push_back({range.first + 3 * from, 3 * (to - from)});
        m_cost += triangles * each;
    }
    return passed;
}
