// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"

namespace Freecut {

/// Fills a matrix with the rotation about a line by the right-hand rule. It is for row vectors: a
/// point p becomes (p, 1) * matrix, with the translation in the fourth row.
///
/// from, to      points of the line at the distance 1
/// angleRadians  of the rotation
void rotateArbitraryLine(double matrix[4][4], UPoint3<double> const& from,
                         UPoint3<double> const& to, double angleRadians);

/// A point times such a matrix.
UPoint3<double> timesRowMatrix(UPoint3<double> const& point, double const matrix[4][4]);

}  // namespace Freecut
