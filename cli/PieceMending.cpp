// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/PieceMending.h"

#include "cli/Errors.h"
#include "cutjobs/PieceRepair.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/mesh/PropertyMesh.h"
#include "platform/services/Repair.h"

#include <optional>

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

/// Puts another mesh into a part for as long as it lives.
class MeshInstead
{
public:
    MeshInstead(Mesh::DocumentObject& part, std::shared_ptr<MeshKernel> mesh)
        : m_property(*part.meshProperty), m_former(m_property.shareMesh())
    {
        m_property.setMesh(std::move(mesh));
    }
    ~MeshInstead() { m_property.setMesh(m_former); }
    MeshInstead(MeshInstead const&) = delete;
    MeshInstead& operator=(MeshInstead const&) = delete;

private:
    PropertyMesh& m_property;
    std::shared_ptr<MeshKernel> m_former;
};

/// A copy of a part's mesh, mended; null where nothing could be mended.
std::shared_ptr<MeshKernel> mendedCopy(CutPart const& part, Repair::Report& report)
{
    Base::SequencerLauncher display("Repairing", 100, true);
    display.setCancelEnabled(true);
    auto kernel = std::make_shared<MeshKernel>(
        static_cast<MeshKernel const*>(part.object->meshProperty->getMesh()));
    kernel->toRclMesh();
    Repair::RepairMethods repair(kernel.get());
    repair.autoRepair_simple_advanced(
        [&](int percent) { display.setProgress(std::uint64_t(percent)); });
    report = repair.report();
    return report.mended.empty() ? nullptr : kernel;
}

}  // namespace

void cutOrMendFirst(CutPart& part, RepairScope scope, std::function<void()> const& job)
{
    std::optional<CutError> refusal;
    try {
        return job();
    } catch (CutError const& error) {
        if (scope != RepairScope::All && error.repairMayHelp())
            throw CutError(error, "With --repair all the part is repaired before it is cut.");
        if (scope != RepairScope::All)
            throw;
        refusal = error.repairMayHelp()
                      ? CutError(error,
                                 "A repair does not mend it without changing the shape: "
                                 "close the part in a modelling program, or cut elsewhere.")
                      : error;
    }
    Repair::Report report;
    std::shared_ptr<MeshKernel> const mended = mendedCopy(part, report);
    if (!mended)
        throw *refusal;
    part.pieces.clear();
    part.remarks.clear();
    MeshInstead const instead(*part.object, mended);
    try {
        job();
    } catch (CutError const&) {
        throw *refusal;
    }
    part.repair = std::move(report);
}

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
