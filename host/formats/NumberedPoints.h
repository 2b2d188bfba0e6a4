// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/formats/PointJoiner.h"

#include <cstddef>
#include <vector>

namespace Formats {

/// The points of a file whose faces refer to them by number: each has the joined vertex at its
/// position. Points are joined many at a time, which is faster than one after the other.
class NumberedPoints
{
public:
    /// points  must outlive this
    explicit NumberedPoints(PointJoiner& points) : m_points(points) {}

    void reserve(std::size_t count) { m_vertices.reserve(count); }

    /// Gives a point the next number, from 0. Returns false, and does nothing, if a coordinate is
    /// not a finite number.
    bool add(UPoint3<float> const& point);

    std::size_t size() const { return m_vertices.size() + m_waiting.size(); }

    /// number  below size()
    UVertex<float>* at(std::size_t number)
    {
        if (number >= m_vertices.size())
            joinWaiting();
        return m_vertices[number];
    }

private:
    void joinWaiting();

    PointJoiner& m_points;
    std::vector<UVertex<float>*> m_vertices;
    /// Points that have a number, but no vertex so far.
    std::vector<UPoint3<float>> m_waiting;
};

}  // namespace Formats
