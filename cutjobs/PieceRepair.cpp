// SPDX-License-Identifier: GPL-3.0-or-later
#include "cutjobs/PieceRepair.h"

#include "cutjobs/common/ServiceCall.h"
#include "platform/jobs/ConsoleSingleton.h"
#include "platform/jobs/SecondaryThread.h"

Repair::Report repairPiece(MeshKernel& piece, Repair::Scope scope,
                           std::function<void(int)> const& progress, int shown, CutFailure& failure)
{
    Repair::EvaluateErrors errors(&piece);
    std::function<void(int)> const poll =
        progress ? [&](int) { progress(shown); } : std::function<void(int)>();
    bool hasErrors = false;
    Repair::Report report;
    ServiceCall::run(failure, [&] {
        SecondaryThread const check([&] {
            hasErrors = errors.evaluate(Repair::EvaluateErrors::ERROR_ALL, true, true, poll) != 0;
        });
        // Bodies that touch along an edge have no errors, but only a repair of the whole parts them.
        if (!hasErrors && !scope.isWhole())
            return;
        piece.toRclMesh();
        Repair::RepairMethods repair(&piece, scope, errors.survey());
        repair.autoRepair_simple_advanced(progress);
        report = repair.report();
    });
    for (std::string const& line : Repair::linesOf(report))
        Base::ConsoleSingleton::Instance().Log(line.c_str());
    return report;
}
