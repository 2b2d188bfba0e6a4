// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tools/ViewPlace.h"

namespace Base {
class GLView;
}

namespace Freecut {

/// Lets a view look from a place. Its scale stays.
void putView(Base::GLView& view, ViewPlace const& place);

/// From where a view looks. The view itself is put to that very place, to which it may have been as
/// near as rounding makes of a turn or a move; no picture shows it.
ViewPlace settledPlaceOf(Base::GLView& view);

}  // namespace Freecut
