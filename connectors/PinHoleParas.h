// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// How pins and holes are shaped and placed, in millimetres.
struct PinHoleParas
{
    float radius = 2.0f;
    /// Largest gap between a facet and the true circle; it sets the number of facets.
    float tolerance = 0.01f;
    /// Height of the pins above the section plane.
    float height = 5.0f;
    /// With isSidedis: inset from the contour of the line on which the positions lie.
    float sidedistance = 4.0f;
    /// Extra depth of the holes beyond the pins' tips.
    float topclearance = 0.01f;
    /// Smallest distance between two positions.
    float spacing = 6.0f;
    /// Extra radius of the holes over the pins.
    float sideclearance = 0.01f;
    /// Gap left between the two cut faces along the normal. Exactly zero: one cut makes both faces.
    float faceclearance = 0.01f;
    /// Positions follow the contours at sidedistance; otherwise the section's centre lines.
    bool isSidedis = false;
    /// One half gets pins and the other one holes; otherwise both get holes.
    bool isPin = true;
    /// On the centre lines, positions whose holes would come within 0.1 mm of a contour are left
    /// out.
    bool keepClear = false;
};
