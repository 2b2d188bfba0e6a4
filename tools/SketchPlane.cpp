// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/SketchPlane.h"

#include "platform/view/GLCamera.h"

namespace Freecut {

UPoint3<float> SketchPlane::toWorld(float x, float y) const
{
    UPoint3<float> point(x, y, m_depth);
    m_camera->ViewCSToWCSpoint(point);
    return point;
}

UPoint3<float> SketchPlane::toEye(UPoint3<float> const& world) const
{
    UPoint3<float> point = world;
    m_camera->WCSToViewCSpoint(point);
    return point;
}

UVector3<float> SketchPlane::direction(UPoint3<float> const& from, float x, float y) const
{
    UPoint3<float> point = toEye(from) + UVector3<float>(x, y, 0);
    m_camera->ViewCSToWCSpoint(point);
    return (point - from).Normalize();
}

}  // namespace Freecut
