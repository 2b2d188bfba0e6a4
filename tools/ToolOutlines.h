// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/Loops.h"

#include <string>

namespace Freecut {

/// The outlines of a solid tool, in world coordinates, and what is drawn of them as x, y, z.
///
/// A polygon may have several loops. Cuboid and cylinder have one at most, their ring.
struct ToolOutlines
{
    /// The nominal outline. Those of a polygon repeat their first point at the end.
    Loops solidLoops;
    /// What falls away where a polygon crosses itself; each but an open one repeats its first
    /// point.
    Loops residualLoops;
    /// The nominal outline with rounded corners, without a repeat; empty when rounding is off.
    Loops roundedLoops;
    /// The outline moved outward and inward by the clearance; empty when there is none.
    Loops outerLoops;
    Loops innerLoops;
    /// The caps of the inner solid. A polygon has them once its solid is built.
    Loops topLoops;
    Loops bottomLoops;
    /// One for each edge whose teeth are under edit, from end to end.
    Loops teethLoops;

    std::vector<float> outlineBuffer;
    std::vector<float> outerBuffer;
    std::vector<float> innerBuffer;
    std::vector<float> teethBuffer;
    /// The faces of the inner solid and their normals, as VolumeOutline::buildSolidBuffers tells.
    std::vector<float> previewBuffer;
    std::vector<float> normalBuffer;

    /// Why there is no outline to cut with, as a sentence that tells the user what to do; empty if
    /// all is well. What was drawn is among the residual loops then, and there is nothing else.
    std::string problem;

    // The one loop of a cuboid or cylinder; empty if there is none.
    Ring const& baseRing() const { return ringOf(solidLoops); }
    Ring const& roundedRing() const { return ringOf(roundedLoops); }
    Ring const& outerRing() const { return ringOf(outerLoops); }
    Ring const& innerRing() const { return ringOf(innerLoops); }
    Ring const& topRing() const { return ringOf(topLoops); }
    Ring const& bottomRing() const { return ringOf(bottomLoops); }

    void clear();
    /// Leaves nothing but what was drawn.
    void refuse(std::string why, Loops drawn);

private:
    static Ring const& ringOf(Loops const& loops)
    {
        static Ring const none;
        return loops.empty() ? none : loops.front();
    }
};

/// The loops moved by a vector.
Loops translated(Loops loops, UVector3<float> const& by);
/// The loops without their last points.
Loops withoutLastPoints(Loops loops);

}  // namespace Freecut
