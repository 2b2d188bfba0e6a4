// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/EdgeFrame.h"

#include <vector>

namespace Freecut {

/// A tab of four half circles: from the edge the outline runs into a neck, out around one side of
/// a round head, over its top, and back. Seen from the edge it opens with the width less half the
/// height, narrows to the width less the height, and its head is as wide as the tab.
class PuzzleTab
{
public:
    /// width, height  millimetres; a height above the width would close the neck
    PuzzleTab(EdgeFrame const& edge, float width, float height);

    /// Appends the outline of the tab on a centre. Its first point is left out if it is the start
    /// of the edge.
    void appendOutline(std::vector<UPoint3<float>>& points, UPoint3<float> const& centre) const;
    /// The top of the head, on its far side.
    UPoint3<float> handle(UPoint3<float> const& centre) const;

    /// Into how many steps a half circle of a radius in millimetres is divided: 8 to 50, most just
    /// above 0.5 mm.
    static int stepsOfHalfCircle(float radius);

private:
    enum class Turn
    {
        Inward,
        Outward
    };
    void appendArc(std::vector<UPoint3<float>>& points, UPoint3<float> const& middle,
                   UVector3<float> radial, int steps, Turn turn) const;
    UVector3<float> tangent(UVector3<float> const& radial, Turn turn) const;

    EdgeFrame const& m_edge;
    float m_width;
    float m_height;
    float m_radius;
    int m_steps;
    float m_stepTangent;
};

}  // namespace Freecut
