// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <vector>

class ViewScene;

/// Paints the build plate in the plane z = 0, around the origin, with a line per ten millimetres
/// and, where the scale gives them room, a fainter line per millimetre, and the axes at the origin.
/// It leaves no depth behind, so parts show before it from above and from below.
///
/// pixelsPerMm  of the picture, in widget pixels
void paintBuildPlate(ViewScene& scene, float width, float depth, double pixelsPerMm);

/// Paints the directions of the axes, with their letters, in the lower left corner.
void paintAxes(ViewScene& scene, int widgetWidth, int widgetHeight);
