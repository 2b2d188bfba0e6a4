// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/CuboidOutline.h"

#include "tools/CuboidProperty.h"

#include <cmath>

namespace Freecut {

CuboidOutline::CuboidOutline(CuboidProperty& cuboid)
    : VolumeOutline(cuboid, Kind::OneRing), m_cuboid(cuboid)
{}

VolumeOutline::Rounding CuboidOutline::rounding() const
{
    return {m_cuboid.getRoundCorners(), m_cuboid.getCornerRadius()};
}

void CuboidOutline::deriveNominal(SketchPlane const& plane, WorkPoll const& /*poll*/)
{
    std::vector<UPoint3<float>>& points = m_cuboid.getKeyPoints();
    UPoint3<float> const center = points[0];
    float const cosine = std::cos(m_cuboid.getCuboidAngle());
    float const sine = std::sin(m_cuboid.getCuboidAngle());
    UVector3<float> const a =
        plane.direction(center, cosine, sine) * (0.5f * m_cuboid.getCuboidLength());
    UVector3<float> const b =
        plane.direction(center, -sine, cosine) * (0.5f * m_cuboid.getCuboidWidth());
    m_outlines.solidLoops = {{center + a + b, center - a + b, center - a - b, center + a - b}};
    points = {center, center + a, center + a + b, center + b};
}

void CuboidOutline::appendSolid(SolidPreview& preview) const
{
    Ring const& top = m_outlines.topRing();
    Ring const& bottom = m_outlines.bottomRing();
    if (preview.isOpenGL33()) {
        preview.addPoints(top);
        preview.addPoints(bottom);
    } else if (!m_cuboid.getKeyPoints().empty()) {
        UPoint3<float> const center = m_cuboid.getKeyPoints()[0];
        UPoint3<float> const below = center - m_cuboid.getExtrudeVector();
        for (std::size_t i = 0; i < top.size(); ++i)
            preview.addTriangle(center, top[i], top[(i + 1) % top.size()]);
        for (std::size_t i = 0; i < bottom.size(); ++i)
            preview.addTriangle(below, bottom[(i + 1) % bottom.size()], bottom[i]);
    }
    preview.addSides(top, bottom);
}

}  // namespace Freecut
