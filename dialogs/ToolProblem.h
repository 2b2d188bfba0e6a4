// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace Freecut {

class VolumeGraphicObject;

/// Why a solid tool, complete as it is, cannot cut, as a sentence that says what to do; empty if it
/// can, or if no view has derived its outlines.
QString problemOfTool(VolumeGraphicObject const& tool);

/// False while outlines are still derived in the background, for which problemOfTool() waits.
bool hasDerivedOutlines(VolumeGraphicObject const& tool);

}  // namespace Freecut
