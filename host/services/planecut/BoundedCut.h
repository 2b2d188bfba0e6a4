// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/planecut/SectionWalls.h"

#include <functional>
#include <optional>
#include <vector>

/// How a cut by a plane that ends within the part differs from one that goes right through it.
struct BoundedCut
{
    /// Per section point: whether it belongs to a face that is cut.
    std::vector<bool> isCutPoint;
    /// The half of each triangle that was copied, in the order of the source.
    std::vector<CutSide> halfOfCopy;
    std::vector<CutSide> halfOfWallPiece;
};

/// Decides which faces of a section are cut, and to which half everything goes.
///
/// A face is cut if the plane mesh covers all of it, and if that parts something: the pieces above
/// cut faces make up the half above, those below them the half below. A piece with faces of both
/// kinds would belong to both halves; chooseFaces() tells which faces are left whole for its sake.
/// Pieces that no face touches go to a half as settleUntouched() tells.
///
/// See docs/decisions/0004-bounded-plane.md.
///
/// filling   the section as if the plane had no end
/// progress  a percentage; may throw
/// returns   nothing if no face is cut
/// cost      linear in the triangles of the part, plus sorting those at the plane
std::optional<BoundedCut> boundCut(UMesh<float> const& part, CutPlane const& plane,
                                   SideCopies const& copies, SectionPoints const& points,
                                   std::vector<WallPiece> const& wallPieces,
                                   Contours const& contours, Exact::SectionFilling const& filling,
                                   std::function<void(int)> const& progress);
