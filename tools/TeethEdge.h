// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <vector>

namespace Freecut {

/// The teeth of one polygon edge: the parameters as they were applied, and the points that they
/// give rise to. While `editing` the edge has teeth; only then may there be base and handle points.
struct TeethEdge
{
    bool operator==(TeethEdge const&) const = default;

    bool hasTeeth = false;
    /// The side on which the teeth stand: that of the mouse tool, which begins with this one.
    bool flip = true;
    /// The teeth were confirmed.
    bool applied = false;
    /// The edge takes part in the current edit.
    bool editing = false;

    // Lengths in millimetres.
    int teethStyle = 0;
    float teethWidth = 2.0f;
    float teethHeight = 1.0f;
    float upperWidth = 2.0f;
    float lowerWidth = 1.0f;
    float doveHeight = 1.0f;
    int teethCount = 4;
    float teethDistance = 3.0f;
    int teethMethod = 0;
    bool useOffset = false;
    float teethOffset = 0.0f;

    /// The centre of each tooth on the edge, under edit.
    std::vector<UPoint3<float>> basePoints;
    /// One drag handle for each tooth, under edit.
    std::vector<UPoint3<float>> handlePoints;
    /// The outline between the edge's end points, under edit.
    std::vector<UPoint3<float>> teethPoints;
    /// The same, as confirmed.
    std::vector<UPoint3<float>> appliedPoints;
};

}  // namespace Freecut
