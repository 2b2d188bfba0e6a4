// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>

namespace Base {
class GLView;
}

/// The cube in the upper right corner that shows how the view lies. Its faces stand for the
/// standard views, and the corner at the front, the right and above for the isometric one.
namespace OrientationCube {

/// The standard view for a click at a widget position; -1 beside the cube.
int viewAt(Base::GLView const& view, QPoint position);

/// Paints it, with the context current.
///
/// highlighted  the standard view whose face or corner is under the mouse, or -1
void paint(Base::GLView const& view, int highlighted);

}  // namespace OrientationCube
