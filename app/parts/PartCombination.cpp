// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartCombination.h"

#include "app/parts/EditStep.h"
#include "app/parts/FreeNames.h"
#include "app/parts/PartEdits.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/jobs/Exceptions.h"
#include "platform/mesh/TakenMesh.h"
#include "platform/services/Repair.h"

#include <array>

namespace {

using Operation = PartCombination::Operation;
using Progress = std::function<void(int)>;

struct Names
{
    char const* job;
    char const* step;
};

/// In the order of the operations.
constexpr std::array<Names, 6> names = {{
    {QT_TRANSLATE_NOOP("JobGuard", "Joining parts"), QT_TRANSLATE_NOOP("UndoRedoName", "Join")},
    {QT_TRANSLATE_NOOP("JobGuard", "Taking parts away"),
     QT_TRANSLATE_NOOP("UndoRedoName", "Take Away")},
    {QT_TRANSLATE_NOOP("JobGuard", "Intersecting parts"),
     QT_TRANSLATE_NOOP("UndoRedoName", "Intersect")},
    {QT_TRANSLATE_NOOP("JobGuard", "Splitting a part"),
     QT_TRANSLATE_NOOP("UndoRedoName", "Split by Parts")},
    {QT_TRANSLATE_NOOP("JobGuard", "Splitting into shells"),
     QT_TRANSLATE_NOOP("UndoRedoName", "Split into Shells")},
    {QT_TRANSLATE_NOOP("JobGuard", "Merging parts"), QT_TRANSLATE_NOOP("UndoRedoName", "Merge")},
}};

Names const& namesOf(Operation operation)
{
    return names[std::size_t(operation)];
}

void mend(std::set<int> const& toMend, std::vector<SolidOperations::Kernel>& kernels,
          Progress const& progress)
{
    for (int const index : toMend) {
        MeshKernel copy(*kernels[std::size_t(index)]);
        copy.toRclMesh();
        Repair::RepairMethods(&copy).autoRepair_simple_advanced(progress);
        kernels[std::size_t(index)] = asReadOnly(copy);
    }
}

bool isOpen(std::vector<SolidOperations::Piece> const& pieces, Progress const& progress)
{
    std::size_t open = 0;
    for (SolidOperations::Piece const& piece : pieces) {
        Repair::EvaluateErrors errors(piece.kernel.get());
        errors.evaluate(Repair::EvaluateErrors::ERROR_EDGES, false, true, progress);
        open += errors.counts().borderEdges;
    }
    return open > 0;
}

}  // namespace

/// What a job works on and makes.
struct PartCombination::Run
{
    Task task;
    std::vector<QString> names;
    Kernels kernels;
    Report report;
    SolidOperations::Result result;
};

PartCombination::PartCombination()
{
    connect(&m_job, &WindowJob::finished, this, [this] { emit finished(m_report); });
}

PartCombination::~PartCombination()
{
    m_job.stop();
}

bool PartCombination::start(Mesh::Document& document, Task const& task)
{
    if (JobGuard::instance()->isBusy() || task.parts.empty())
        return false;
    m_document = &document;
    m_task = task;
    auto const run = std::make_shared<Run>();
    run->task = task;
    for (Mesh::DocumentObject const* const part : task.parts) {
        run->names.push_back(QString::fromStdString(part->getName()));
        run->kernels.push_back(part->meshProperty->shareMesh());
    }
    m_job.start(
        namesOf(task.operation).job, [run](Progress const& progress) { combine(*run, progress); },
        [this, run](JobOutcome const& outcome) { end(*run, outcome); });
    return true;
}

void PartCombination::combine(Run& run, Progress const& progress)
{
    auto const share = [&](int from, int to) {
        return [&progress, from, to](int percent) { progress(from + percent * (to - from) / 100); };
    };
    Report& report = run.report;
    try {
        int const mended = run.task.toMend.empty() ? 0 : 40;
        mend(run.task.toMend, run.kernels, share(0, mended));
        run.result = SolidOperations::apply(run.task.operation, run.kernels, share(mended, 90));
        report.isOpen = isOpen(run.result.pieces, share(90, 100));
    } catch (Mell::FlawException const& flaw) {
        report.place = flaw.place();
        if (auto const* const own = dynamic_cast<SolidOperations::OperandFlaw const*>(&flaw))
            blame(*own, run);
        throw;
    }
    report.isCrossing = !run.result.notes.crossing.empty();
    report.nothing = run.result.nothing;
    report.bodies = run.result.bodies;
}

void PartCombination::blame(SolidOperations::OperandFlaw const& flaw, Run& run)
{
    Report& report = run.report;
    report.operand = flaw.operand();
    report.repairMayHelp = report.operand >= 0;
    report.reason = flaw.findingOf(report.repairMayHelp ? run.names[std::size_t(report.operand)]
                                                        : tr("One of the parts"));
}

void PartCombination::end(Run& run, JobOutcome const& outcome)
{
    m_report = run.report;
    if (m_report.reason.isEmpty())
        m_report.reason = outcome.problem;
    m_report.outcome = outcome.isCancelled         ? Outcome::Cancelled
                       : !outcome.isDone()         ? Outcome::Failed
                       : run.result.pieces.empty() ? Outcome::Nothing
                                                   : Outcome::Done;
    // Parts that are replaced let their meshes go.
    run.kernels.clear();
    if (m_report.outcome == Outcome::Done)
        take(run.result);
}

void PartCombination::take(SolidOperations::Result const& result)
{
    EditStep const step(*m_document, namesOf(m_task.operation).step);
    bool const isOnlyFirst = m_task.operation == Operation::TakeAway ||
                             m_task.operation == Operation::Split ||
                             m_task.operation == Operation::Shells;
    bool const takesPlace = result.pieces.front().suffix.empty();
    PartEdits::Objects leaving;
    for (Mesh::DocumentObject* const part : m_task.parts) {
        bool const isFirst = part == m_task.parts.front();
        if (isFirst ? !takesPlace : !(isOnlyFirst && m_task.keepsOthers))
            leaving.push_back(part);
    }
    if (takesPlace)
        replaceFirst(result.pieces.front());
    else
        addPieces(result.pieces);
    PartEdits::removeInStep(*m_document, leaving);
}

void PartCombination::replaceFirst(SolidOperations::Piece const& piece)
{
    Mesh::DocumentObject* const first = m_task.parts.front();
    first->meshProperty->setMesh(piece.kernel);
    m_document->select(first, true, true, true);
}

void PartCombination::addPieces(std::vector<SolidOperations::Piece> const& pieces)
{
    Mesh::DocumentObject* const first = m_task.parts.front();
    FreeNames freeNames(*m_document);
    std::vector<Mesh::DocumentObject*> added;
    for (SolidOperations::Piece const& piece : pieces) {
        auto* const part = new Mesh::DocumentObject;
        part->copyFrom(first);
        part->meshProperty->setMesh(piece.kernel);
        m_document->addObject(part, freeNames.take(first->getName() + piece.suffix).c_str(), true);
        if (Mesh::DocumentObjectGroup* const group = first->getGroup())
            group->addObject(part, nullptr);
        added.push_back(part);
    }
    m_document->clearSelection();
    for (Mesh::DocumentObject* const part : added)
        m_document->select(part, true, part == added.back(), false);
}
