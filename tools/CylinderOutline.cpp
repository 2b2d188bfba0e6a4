// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CylinderOutline.h"

#include "tools/CylinderProperty.h"

#include <algorithm>
#include <cmath>

namespace Freecut {

namespace {

constexpr double fullTurn = 6.283185307179586;
constexpr int leastSections = 8;
constexpr int mostSections = 200;

}  // namespace

int arcSections(double arc, float radius, float tolerance)
{
    float const halfStep = std::acos((radius - tolerance) / radius);
    double const count = std::trunc(arc / (2 * double(halfStep))) + 1;
    // Beyond the diameter there is no chord of that tolerance, and the count is no number.
    if (!(count > leastSections))
        return leastSections;
    return count > mostSections ? mostSections : int(count);
}

CylinderOutline::CylinderOutline(CylinderProperty& cylinder)
    : VolumeOutline(cylinder, Kind::OneRing), m_cylinder(cylinder)
{}

void CylinderOutline::deriveNominal(SketchPlane const& plane, WorkPoll const& /*poll*/)
{
    m_outlines.solidLoops = {m_cylinder.getUseNotch() ? circleWithKey(plane) : circle(plane)};
}

UPoint3<float> CylinderOutline::rimPoint(SketchPlane const& plane, float angle) const
{
    UPoint3<float> const& center = m_cylinder.getKeyPoints()[0];
    return center +
           plane.direction(center, std::sin(angle), std::cos(angle)) * m_cylinder.getRadius();
}

Ring CylinderOutline::circle(SketchPlane const& plane) const
{
    int const n = arcSections(fullTurn, m_cylinder.getRadius(), m_cylinder.getCircleTolerance());
    float const step = float(fullTurn / n);
    Ring ring;
    for (int k = 0; k < n; ++k)
        ring.push_back(rimPoint(plane, 0 - float(k) * step));
    return ring;
}

Ring CylinderOutline::circleWithKey(SketchPlane const& plane)
{
    float const width = m_cylinder.getNotchWidth();
    float const s = float((width * 0.5) / m_cylinder.getRadius());
    float const half = std::asin(std::min(s, 1.0f));
    double const angle = m_cylinder.getNotchAngle() * M_PI / 180;
    float const start = float(angle - half);
    double const arc = fullTurn - 2 * double(half);
    int const n = arcSections(arc, m_cylinder.getRadius(), m_cylinder.getCircleTolerance());
    float const step = float(arc / n);
    Ring ring;
    for (int k = 0; k <= n; ++k)
        ring.push_back(rimPoint(plane, start - float(k) * step));

    UPoint3<float> const first = ring.front();
    UVector3<float> across = ring.back() - first;
    float const chord = across.GetLength();
    across.Normalize();
    // A key wider than the circle stands out on both sides.
    UVector3<float> const overhang = across * ((width - chord) / 2);
    if (s > 1)
        ring.push_back(ring.back() + overhang);
    UPoint3<float> const center = m_cylinder.getKeyPoints()[0];
    UVector3<float> const outward =
        plane.direction(center, float(std::sin(angle)), float(std::cos(angle)));
    UPoint3<float> const handle = ring.back() + outward * m_cylinder.getNotchLength();
    m_cylinder.setKeyPoints({center, handle});
    ring.push_back(handle);
    ring.push_back(handle - across * width);
    if (s > 1)
        ring.push_back(first - overhang);
    return ring;
}

}  // namespace Freecut
