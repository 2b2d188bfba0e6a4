// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PieceRepair.h"

#include "cutjobs/common/ServiceCall.h"
#include "platform/jobs/SecondaryThread.h"
#include "platform/services/Repair.h"

void repairPiece(MeshKernel& piece, std::function<void(int)> const& progress)
{
    bool hasErrors = false;
    ServiceCall::run([&] {
        SecondaryThread const check([&] {
            Repair::EvaluateErrors errors(&piece);
            hasErrors = errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, true, true, {}) != 0;
        });
        if (!hasErrors)
            return;
        piece.toRclMesh();
        Repair::RepairMethods(&piece).autoRepair_simple_advanced(progress);
    });
}
