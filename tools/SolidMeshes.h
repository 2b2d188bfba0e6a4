// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

template <typename T>
class UMesh;

namespace Freecut {

class GraphicViewProvider;

/// The meshes of a solid tool, from the outlines that its view provider has derived.
namespace SolidMeshes {

/// The solid without clearance, or the inner one if there is one; the caller owns it. Null without
/// outlines, and without vertices where these tell of a problem.
///
/// provider  may be null
UMesh<float>* nominal(GraphicViewProvider* provider);

/// The inner solid, unless it has no vertices, and the outer one, which may have none; the caller
/// owns them. None without outlines, and none where these tell of a problem. Unless the tool is in
/// preview, the bottom is moved down here, so it is called once after the outlines were derived.
std::vector<UMesh<float>*> inAndOut(GraphicViewProvider* provider);

}  // namespace SolidMeshes

}  // namespace Freecut
