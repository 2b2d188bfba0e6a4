// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PieceRepair.h"

#include "cutjobs/common/ServiceCall.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/SecondaryThread.h"

Repair::Report repairPiece(MeshKernel& piece, Repair::Scope scope,
                           std::function<void(int)> const& progress, std::string& reason)
{
    bool hasErrors = false;
    Repair::Report report;
    ServiceCall::run(reason, [&] {
        SecondaryThread const check([&] {
            Repair::EvaluateErrors errors(&piece);
            hasErrors = errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, true, true, {}) != 0;
        });
        if (!hasErrors)
            return;
        piece.toRclMesh();
        Repair::RepairMethods repair(&piece, scope);
        repair.autoRepair_simple_advanced(progress);
        report = repair.report();
    });
    for (std::string const& line : Repair::linesOf(report))
        Base::ConsoleSingleton::Instance().Log(line.c_str());
    return report;
}
