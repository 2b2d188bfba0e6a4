// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

/// The shapes of teeth, as TeethParas::teethStyle counts them.
enum TeethStyle
{
    TEETH_JAGGED = 0,
    TEETH_DOVETAIL = 1,
    TEETH_PUZZLE = 2
};

/// What a row of teeth is made from. Lengths in millimetres.
struct TeethParas
{
    int teethStyle = TEETH_JAGGED;
    /// Of jagged and puzzle teeth, at the edge.
    float teethWidth = 0;
    float teethHeight = 0;
    /// Of dovetails, away from the edge and at it.
    float upperWidth = 0;
    float lowerWidth = 0;
    float doveHeight = 0;
    /// Counts when teethMethod is 0.
    int teethCount = 0;
    /// From centre to centre; counts when teethMethod is not 0.
    float teethDistance = 0;
    int teethMethod = 0;
    bool useOffset = false;
    /// Left free at the start of an edge.
    float teethOffset = 0;
    bool applyAllEdges = false;
    /// The side of the edge on which the teeth stand.
    bool flipTeeth = true;

    bool operator==(TeethParas const&) const = default;

    bool isByCount() const { return teethMethod == 0; }
    /// The room that a tooth takes on its edge at its widest.
    float toothWidth() const;
};

inline float TeethParas::toothWidth() const
{
    if (teethStyle != TEETH_DOVETAIL)
        return teethWidth;
    return upperWidth > lowerWidth ? upperWidth : lowerWidth;
}

}  // namespace Freecut
