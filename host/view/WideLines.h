// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QMatrix4x4>
#include <QSize>

#include <vector>

/// Lines of any width as triangles in clip space: OpenGL 3.3 core draws none wider than a pixel.
///
/// Of very many lines those are left out that lie within a pixel, where nothing is seen of them but the
/// time that they take; what remains still meets, and a pixel that had lines keeps at least a dot.
///
/// joins   makes the lines longer by half their width at both ends, so that there is no notch where
///         two meet; where they overlap, translucent ones would show it
/// points  pairs of ends; lines that reach behind the eye are left out
/// size, width  of the picture and of the lines, in the same pixels
std::vector<UPoint3<float>> wideLines(std::vector<UPoint3<float>> const& points,
                                      QMatrix4x4 const& toClip, QSize size, float width,
                                      bool joins);
