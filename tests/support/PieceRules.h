// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/PieceJudge.h"

/// What has to hold of the pieces of each operation, from its contract alone.
namespace judge {

struct Plane
{
    UPoint3<double> centre;
    /// Of length one.
    UVector3<double> normal;

    double heightOf(UPoint3<double> const& p) const { return (p - centre) | normal; }
};

/// All of the solid in one of two pieces.
Expected inPiece(std::size_t piece, int winding);
/// All of the solid in the one piece, or nothing.
Expected onlyWhere(bool isThere, int winding);

/// The upper piece first.
Rule planeRule(Plane const& plane, double margin);
/// The lower piece first. Nearer to the plane than `reach` the solid may be in either piece or in a
/// gap, and a connector may reach out of the part.
Rule connectorRule(Plane const& plane, double margin, double reach);

enum class Combination
{
    Union,
    Intersection,
    Difference,
    Split
};

/// At a point around which the part winds so often, of the pieces in their order.
Expected combined(Combination combination, int winding, bool isInTool);

/// Two operands: the part counts in layers, the tool is solid where it winds above zero.
Rule combinationRule(Soup const& tool, Combination combination, double margin);

/// One piece that is solid where the part is.
Rule sameSolidRule();

}  // namespace judge
