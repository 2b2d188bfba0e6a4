// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

class GLCamera;

namespace Freecut {

/// The plane of eye space in which a solid tool is drawn, facing the viewer: x to the right, y up.
class SketchPlane
{
public:
    /// camera  borrowed
    /// depth   eye-space Z of the plane
    SketchPlane(GLCamera const& camera, float depth) : m_camera(&camera), m_depth(depth) {}

    /// The world point at (x, y) of the plane.
    UPoint3<float> toWorld(float x, float y) const;
    UPoint3<float> toEye(UPoint3<float> const& world) const;
    /// The unit vector in the world from a point along (x, y) of the screen.
    UVector3<float> direction(UPoint3<float> const& from, float x, float y) const;
    /// The point of the plane that appears under an eye-space point.
    UPoint3<float> project(UPoint3<float> const& eye) const { return toWorld(eye.X(), eye.Y()); }

private:
    GLCamera const* m_camera;
    float m_depth;
};

}  // namespace Freecut
