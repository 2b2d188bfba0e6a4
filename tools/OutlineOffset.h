// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"
#include "tools/SketchPlane.h"

#include <polyclipping/clipper.hpp>

namespace Freecut {

/// Moves outlines of a tool sideways in its plane, on a grid of 0.001 mm, with round corners.
class OutlineOffset
{
public:
    OutlineOffset(Loops const& outlines, SketchPlane const& plane);

    /// Whether moving them would take more than some seconds: the outlines have so many corners so
    /// near each other that they cross themselves all over once they are moved.
    ///
    /// distance  as for moved
    bool isTooComplicated(double distance) const;

    /// The outlines moved outward, or inward by a negative distance, which is truncated to the
    /// grid. Outlines may join, fall apart, enclose a hole or vanish.
    ///
    /// distance  millimetres
    /// thread    any; several at once
    Loops moved(double distance) const;

    std::size_t pointCount() const { return m_pointCount; }

private:
    SketchPlane m_plane;
    ClipperLib::Paths m_paths;
    std::size_t m_pointCount = 0;
};

}  // namespace Freecut
