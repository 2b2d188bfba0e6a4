// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

template <typename T>
class UMesh;

/// Per triangle of a tool whether it lies in a flat cap of very many: such a cap, cut from an outline
/// as ears, is a fan of needles that reach across all of it, each beside all others. Empty if there
/// is no such cap.
///
/// A cap is what lies in one plane, as near as its points' coordinates can tell, as the caps of a
/// prism do and no two of its walls.
///
/// cost  a few passes
std::vector<bool> crowdedCaps(UMesh<float> const& tool);
