// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/services/boolean/OperandOrder.h"

#include "host/mesh/MeshCopy.h"
#include "host/services/boolean/BooleanNotes.h"
#include "host/services/boolean/SurfaceOrder.h"

#include <utility>

std::unique_ptr<MeshKernel> operandInOrder(MeshKernel const& operand, Operand which,
                                           TriangleTree::Box const& where, bool isTold,
                                           StageProgress& progress)
{
    MeshArrays const mesh = copyArrays(operand, Frame::Local, progress);
    SurfaceOrder const order = findSurfaceOrder(mesh, where, progress);
    if (order.isNone())
        return {};
    if (isTold)
        logSurfaceOrder(order, mesh, which);
    std::vector<bool> isKept;
    isKept.reserve(order.surplus.size());
    for (std::uint32_t const number : order.surplus)
        isKept.push_back(number == 0);
    auto clean = copySelected(*operand.readMesh(), isKept);
    auto copy = clean->triangles.begin();
    for (std::size_t t = 0; t < isKept.size(); ++t) {
        if (isKept[t] && order.isTurned[t]) {
            std::swap((*copy)->V0(1), (*copy)->V0(2));
            (*copy)->N() = -(*copy)->N();
        }
        copy += isKept[t] ? 1 : 0;
    }
    return std::make_unique<MeshKernel>(clean.release());
}
