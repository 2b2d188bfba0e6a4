// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "selection/ToolState.h"
#include "tools/StoredTool.h"

namespace Base {
class GLView;
}

namespace Freecut {

/// The state of a mouse tool that has drawn a stored tool.
///
/// now    the mouse tool's state; where turns of the view have taken its object stays
/// view   at the tool's place
/// throws Mell::Exception if the tool's teeth do not fit
ToolState stateOf(StoredTool stored, ToolState now, Base::GLView const& view);

}  // namespace Freecut
