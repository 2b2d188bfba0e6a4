// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

namespace Base {
class GLView;
}

namespace Freecut {

/// How a view is looked into, in world space.
struct CameraPose
{
    /// One unit from the reference point towards the viewer.
    UPoint3<float> eye;
    UPoint3<float> ref;
    UVector3<float> up;
};

CameraPose poseOf(Base::GLView const& view);

/// What happened to a camera between two pictures. A zoom is none of it.
enum class CameraChange
{
    None,
    Panned,
    /// The eye stayed where it was.
    ReferenceMoved,
    Turned,
    Rolled
};

/// Compares coordinate by coordinate, exactly.
CameraChange changeBetween(CameraPose const& last, CameraPose const& now);

}  // namespace Freecut
