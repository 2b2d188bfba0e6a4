// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <numbers>

/// What reader and writer of tool files say alike.
namespace Freecut::ToolFileNames {

inline constexpr char const* format = "drawn tool";

inline constexpr std::initializer_list<char const*> kinds{"polygon", "cylinder", "cuboid"};
/// By the numbers of the standard views.
inline constexpr std::initializer_list<char const*> views{"front",  "back", "top",
                                                          "bottom", "left", "right"};
/// As TeethStyle counts them.
inline constexpr std::initializer_list<char const*> styles{"jagged", "dovetail", "puzzle"};
/// Of an edge, as it runs in the view: where flipped teeth stand, and others.
inline constexpr std::initializer_list<char const*> sides{"right", "left"};
/// As clearanceDirection counts them.
inline constexpr std::initializer_list<char const*> clearanceSides{"inside", "outside", "both"};

inline float radiansOf(double degrees)
{
    return float(degrees * std::numbers::pi / 180);
}

inline double degreesOf(float radians)
{
    return double(radians) * 180 / std::numbers::pi;
}

}  // namespace Freecut::ToolFileNames
