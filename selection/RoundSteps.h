// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace Base {
class GLView;
}

namespace Freecut {

// Round numbers of the unit in which lengths are shown: 1, 2 or 5 times a power of ten, as large as
// the picture makes them.

/// The least round length, in millimetres, that is a number of pixels long or longer.
float roundLength(double millimetresPerPixel, double pixels, double unit);

/// What can just be seen: one pixel or a little more.
float finestStep(Base::GLView const& view);
/// The spacing of a grid on the screen.
float gridStep(Base::GLView const& view);

}  // namespace Freecut
