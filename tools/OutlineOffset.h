// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/SketchPlane.h"

#include <polyclipping/clipper.hpp>

namespace Freecut {

/// Moves outlines of a tool sideways in its plane, on a grid of 0.001 mm, with round corners. One
/// object serves both directions.
class OutlineOffset
{
public:
    OutlineOffset(Loops const& outlines, SketchPlane const& plane);

    /// The outlines moved outward, or inward by a negative distance, which is truncated to the
    /// grid. Outlines may join, fall apart, enclose a hole or vanish.
    ///
    /// distance  millimetres
    Loops moved(double distance);

private:
    SketchPlane m_plane;
    ClipperLib::ClipperOffset m_offset;
};

}  // namespace Freecut
