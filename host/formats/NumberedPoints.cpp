// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/formats/NumberedPoints.h"

#include <cmath>

namespace Formats {
namespace {

/// Some of the joiner's own batches.
constexpr std::size_t mostWaiting = 768;

}  // namespace

bool NumberedPoints::add(UPoint3<float> const& point)
{
    if (!std::isfinite(point.X()) || !std::isfinite(point.Y()) || !std::isfinite(point.Z()))
        return false;
    m_waiting.push_back(point);
    if (m_waiting.size() == mostWaiting)
        joinWaiting();
    return true;
}

void NumberedPoints::joinWaiting()
{
    std::size_t const known = m_vertices.size();
    m_vertices.resize(known + m_waiting.size());
    m_points.join(m_waiting, m_vertices.data() + known);
    m_waiting.clear();
}

}  // namespace Formats
