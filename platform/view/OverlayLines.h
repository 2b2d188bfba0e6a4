// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <vector>

namespace Base {

class GLView;

/// How lines over a picture look.
struct OverlayLook
{
    /// 0xRRGGBBAA
    unsigned rgba = 0x000000ff;
    /// In pixels that are independent of the device's ratio.
    float width = 2;
    /// Parts hide them; what is hidden is drawn pale. Otherwise nothing hides them.
    bool isHiddenByParts = true;
};

/// Draws lines between points of the world, a little nearer than the surfaces that they lie on. For
/// tools and items over the picture, while they are drawn; on both paths of OpenGL.
///
/// points  pairs of ends, in world millimetres
void drawLines(GLView& view, std::vector<UPoint3<float>> const& points, OverlayLook const& look);

/// Fills triangles of the world, of three points each, over everything.
void drawAreas(GLView& view, std::vector<UPoint3<float>> const& points, unsigned rgba);

}  // namespace Base
