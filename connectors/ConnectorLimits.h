// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// Defaults, limits and settings keys of the connector parameters: the same for everything through
/// which a person sets them. Lengths in millimetres.
namespace ConnectorLimits {

/// A length.
struct Length
{
    /// Where the settings keep it.
    char const* key;
    double initial;
    /// The values allowed, both ends included. Where another parameter narrows them, the operations
    /// below tell.
    double least;
    double largest;
    /// What one step of a spin box is.
    double step;
};

/// A choice or a switch.
template <typename T>
struct Choice
{
    char const* key;
    T initial;
};

namespace PinHole {

inline constexpr Length radius{"/Sectioncut/radius", 2.0, 0.001, 100000.0, 1.0};
/// At most the radius.
inline constexpr Length tolerance{"/Sectioncut/tolerance", 0.01, 0.001, 100000.0, 0.01};
inline constexpr Length height{"/Sectioncut/height", 5.0, 0.001, 100000.0, 1.0};
/// At least the radius.
inline constexpr Length sideDistance{"/Sectioncut/sidedistance", 4.0, 0.001, 100000.0, 1.0};
inline constexpr Length topClearance{"/Sectioncut/topclearance", 0.01, 0.0, 100000.0, 0.01};
/// At least leastSpacing.
inline constexpr Length spacing{"/Sectioncut/spacing", 6.0, 0.002, 1000000.0, 1.0};
inline constexpr Length sideClearance{"/Sectioncut/sideclearance", 0.01, 0.0, 100000.0, 0.01};
inline constexpr Length faceClearance{"/Sectioncut/faceclearance", 0.01, 0.0, 100000.0, 0.01};
inline constexpr Choice<bool> isSidedis{"/Sectioncut/isSidedis", false};
inline constexpr Choice<bool> isPin{"/Sectioncut/isPin", true};

/// Two neighbouring holes just do not meet.
constexpr double leastSpacing(double pinRadius, double holeSideClearance)
{
    return 2 * (pinRadius + holeSideClearance);
}

}  // namespace PinHole

namespace LapJoint {

inline constexpr Length notchDepth{"/Lapjoint/notchDepth", 3.0, 0.001, 100000.0, 1.0};
inline constexpr Length sideDistance{"/Lapjoint/sideDistance", 2.0, 0.001, 100000.0, 1.0};
// The clearances allow 0 until the parameter they depend on is edited; from then on they range from
// leastEditedClearance to that parameter. Whatever is stored is at most that parameter.
/// At most the side distance.
inline constexpr Length notchClearance{"/Lapjoint/notchClearance", 0.2, 0.0, 100.0, 0.1};
/// At most the notch depth.
inline constexpr Length frontClearance{"/Lapjoint/frontClearance", 0.2, 0.0, 100.0, 0.1};
/// At most the notch depth.
inline constexpr Length backClearance{"/Lapjoint/backClearance", 0.2, 0.0, 100.0, 0.1};
inline constexpr double leastEditedClearance = 0.001;
/// 0 outer contours, 1 inner contours, 2 all; any other stored value stands for all.
inline constexpr Choice<int> basedOn{"/Lapjoint/basedOn", 2};

}  // namespace LapJoint

}  // namespace ConnectorLimits
