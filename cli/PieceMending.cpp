// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PieceMending.h"

#include "cli/Errors.h"
#include "cutjobs/PieceRepair.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"

namespace {

void mend(CutPiece& piece, Repair::Scope scope)
{
    Base::SequencerLauncher display("Repairing", 100, true);
    display.setCancelEnabled(true);
    auto const kernel = std::make_shared<MeshKernel>(piece.kernel.get());
    CutFailure failure;
    try {
        piece.repair = repairPiece(
            *kernel, scope, [&](int percent) { display.setProgress(std::uint64_t(percent)); }, 0,
            failure);
    } catch (char const*) {
        throw CutError("The repair of a piece failed: " + failure.reason);
    }
    piece.kernel = kernel;
}

}  // namespace

void mendPieces(CutPart& part, RepairScope scope)
{
    if (scope == RepairScope::None)
        return;
    MeshKernel const& source = *part.object->meshProperty->getMesh();
    for (CutPiece& piece : part.pieces)
        if (!piece.repair)
            mend(piece,
                 scope == RepairScope::All ? Repair::Scope() : Repair::Scope::madeFrom(source));
}
