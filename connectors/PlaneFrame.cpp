// SPDX-License-Identifier: GPL-3.0-or-later
#include "connectors/PlaneFrame.h"

namespace {

UVector3<float> direction(UPoint3<float> const& from, UPoint3<float> const& to)
{
    UVector3<float> along = to - from;
    return along.Normalize();
}

}  // namespace

PlaneFrame::PlaneFrame(std::span<UPoint3<float> const, 5> keyPoints)
    : m_centre(keyPoints[0]),
      m_direction1(direction(keyPoints[1], keyPoints[2])),
      m_direction2(direction(keyPoints[2], keyPoints[3])),
      m_normal(m_direction1 * m_direction2)
{
    m_normal.Normalize();
    m_u = m_direction2 * m_normal;
}

UPoint3<float> PlaneFrame::toPlaneLocal(UPoint3<float> const& p) const
{
    UVector3<float> const fromCentre = p - m_centre;
    return {m_u | fromCentre, m_direction2 | fromCentre, m_normal | fromCentre};
}

UPoint3<float> PlaneFrame::fromPlaneLocal(UPoint3<float> const& local) const
{
    UPoint3<float> p;
    for (int i = 0; i < 3; ++i)
        p[i] = float(double(m_centre[i]) + double(local.X()) * m_u[i] +
                     double(local.Y()) * m_direction2[i] + double(local.Z()) * m_normal[i]);
    return p;
}
