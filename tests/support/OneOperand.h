// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/OperandSoup.h"
#include "tests/support/Soup.h"

/// A mesh as the first operand of a boolean that has no second one.
inline OperandSoup operandOf(Soup const& soup)
{
    OperandSoup operand;
    operand.mesh.points = soup.points;
    operand.mesh.triangles = soup.triangles;
    operand.firstPointOfSecond = operand.pointCount();
    operand.firstTriangleOfSecond = operand.triangleCount();
    return operand;
}
