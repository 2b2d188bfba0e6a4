// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

#include <QPoint>

#include <optional>
#include <vector>

namespace Base {
class GLView;
}

namespace Freecut {

/// Whether a mouse position touches a handle: nearer than 8 pixels in both directions.
bool isOnHandle(QPoint mouse, QPoint handle);

/// The first of some world points whose handle a widget position touches, as a view shows them;
/// none if it touches none.
std::optional<int> handleAt(Base::GLView const& view, QPoint mouse,
                            std::vector<UPoint3<float>> const& handles);

}  // namespace Freecut
