// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Limits and defaults of the solid tools: the same for everything through which a person sets them.
namespace Freecut::ToolLimits {

/// The least extent, corner radius, clearance and tolerance, in millimetres.
inline constexpr double leastLength = 0.001;
/// In either direction, in degrees.
inline constexpr double largestAngle = 360;
/// How far a facet of a cylinder may be from the circle, in millimetres, unless told otherwise.
inline constexpr double circleTolerance = 0.025;
/// How opaque the faces of a tool are in its preview, on a scale to 255.
inline constexpr unsigned fillAlpha = 178;

}  // namespace Freecut::ToolLimits
