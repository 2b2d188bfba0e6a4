// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class PolygonCutImp;

namespace Freecut {

class VolumeGraphicObject;

/// Hands the solids of a tool to the worker that cuts with them, as copies, and their direction.
///
/// worker   idle
/// returns  false, and nothing is handed over, if there is no solid to cut with
bool handOverSolids(PolygonCutImp& worker, VolumeGraphicObject& tool, bool hasClearance);

}  // namespace Freecut
