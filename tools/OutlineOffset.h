// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Curves.h"
#include "tools/Loops.h"
#include "tools/PollSteps.h"
#include "tools/SketchPlane.h"

#include <optional>

namespace Freecut {

/// Moves outlines of a tool sideways in its plane, on a grid of 0.001 mm, with round corners that
/// are true to 0.00025 mm.
class OutlineOffset
{
public:
    /// poll  asked here and by moved(), on their threads; what it throws passes
    OutlineOffset(Loops const& outlines, SketchPlane const& plane, WorkPoll poll = {});

    /// The outlines moved outward, or inward by a negative distance, which is truncated to the
    /// grid. Outlines may join, fall apart, enclose a hole or vanish. Holes run the other way
    /// around; the loop that reaches highest in the plane comes first.
    ///
    /// distance  millimetres
    /// returns   nothing if that would take gigabytes, or beyond 100,000 km
    /// thread    any; several at once
    /// cost      in proportion to points and crossings of the moved outlines
    std::optional<Loops> moved(double distance) const;

    std::size_t pointCount() const { return m_pointCount; }

private:
    std::optional<Curves> movedRegion(double distance) const;

    SketchPlane m_plane;
    WorkPoll m_poll;
    /// In grid units; the one that reaches highest runs anticlockwise.
    Curves m_outlines;
    std::size_t m_pointCount = 0;
    bool m_canBeHeld;
    /// So many that they are thinned before they are moved.
    bool m_hasManyPoints = false;
    /// No outline crosses itself or another one; not known of many points.
    bool m_isSimple = false;
};

}  // namespace Freecut
