// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace Base {
class GLView;
}

/// The sides that a picture can have, in pixels.
constexpr int smallestPicture = 16;
constexpr int largestPicture = 8192;

/// Draws what a view shows into a picture of any size: the exact one, without the axes and the cube.
/// Where its sides are in another ratio than the view's, it shows more or less at the left and right.
///
/// isTransparent  without ground and build plate; what is translucent stays so
/// reason         takes a sentence that says what to do
/// A null image where there is no picture.
QImage takePicture(Base::GLView& view, QSize pixels, bool isTransparent, QString* reason = nullptr);

/// Writes a picture as PNG. On failure, false, and a file of that name stays as it was.
bool savePicture(QImage const& picture, QString const& file, QString* reason = nullptr);
