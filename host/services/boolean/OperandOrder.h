// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "host/services/boolean/OperandSoup.h"
#include "platform/mesh/MeshKernel.h"

#include <memory>

/// An operand without walls that bound nothing and triangles that lie there twice, and with triangles
/// turned that face the wrong way, as far as these reach into a box; see SurfaceOrder. Null if there
/// are none.
///
/// operand  without a matrix
/// isTold   whether the log gets what was done
std::unique_ptr<MeshKernel> operandInOrder(MeshKernel const& operand, Operand which,
                                           TriangleTree::Box const& where, bool isTold,
                                           StageProgress& progress);
