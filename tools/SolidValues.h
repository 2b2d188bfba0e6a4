// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Freecut {

class VolumeGraphicObject;

/// The values of a solid tool that a person edits in fields or by handles. What a kind of tool does
/// not have stays as it is here. What belongs to the view is not among them: standard view, shown
/// coordinates, preview.
struct SolidValues
{
    bool operator==(SolidValues const&) const = default;

    // Lengths in millimetres.
    bool isClearanceEnabled = false;
    int clearanceDirection = 0;
    float clearance = 0;
    bool isCutTillEnabled = false;
    float cutTill = 0;
    /// Of polygons and cuboids.
    bool hasRoundCorners = false;
    float cornerRadius = 0;
    /// Of a cuboid, or of a cylinder's notch; the angle in the unit of the record.
    float length = 0;
    float width = 0;
    float angle = 0;
    float radius = 0;
    float tolerance = 0;
    bool hasNotch = false;
};

SolidValues valuesOf(VolumeGraphicObject& tool);
/// Writes the values into the tool's record, and nothing that follows from them but its depth.
void setValues(VolumeGraphicObject& tool, SolidValues const& values);

}  // namespace Freecut
