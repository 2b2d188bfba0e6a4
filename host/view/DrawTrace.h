// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/view/DrawDevice.h"

#include <cstdint>

/// Follows what a device is asked to draw, and lets a part of it through. So a picture can be drawn
/// in steps, each of which goes through all of it, and told from another one before it is drawn.
///
/// The cost of a triangle is one, and more with edges; that of lines and areas is small.
class DrawTrace
{
public:
    /// What the edges of a triangle cost.
    static constexpr std::size_t edgesCost = 8;

    /// from, to  what is let through, by the cost of all that comes before it; nothing if they are
    ///           the same
    DrawTrace(std::size_t from, std::size_t to) : m_from(from), m_to(to) {}

    // Called by the device; what they return is to be drawn.

    bool passPoints(std::uint64_t identity, std::span<DrawRun const> runs,
                    QMatrix4x4 const& toClip);
    bool passCap(std::uint64_t identity, CapLook const& look, QMatrix4x4 const& toClip);
    /// To be called before those for faces and edges.
    void beginSurface(std::uint64_t identity, SurfaceLook const& look, QMatrix4x4 const& toClip,
                      QMatrix4x4 const& toEye);
    std::vector<IndexRange> passFaces(std::span<IndexRange const> ranges);
    std::vector<IndexRange> passEdges(std::span<IndexRange const> ranges);

    /// Of all that the device was asked for.
    std::size_t cost() const { return m_cost; }
    /// Differs, but for a chance of 1 in 2^64, where anything is drawn in another way.
    std::uint64_t fingerprint() const { return m_fingerprint; }

    /// That of some bytes.
    static std::uint64_t fingerprintOf(void const* data, std::size_t bytes);

private:
    bool passSmall();
    std::vector<IndexRange> pass(std::span<IndexRange const> ranges, std::size_t each);
    void add(std::uint64_t value);
    void add(QMatrix4x4 const& matrix);

    std::size_t m_from;
    std::size_t m_to;
    std::size_t m_cost = 0;
    std::uint64_t m_fingerprint = 0;
};
