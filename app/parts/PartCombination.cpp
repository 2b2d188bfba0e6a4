// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/parts/PartCombination.h"

#include "app/parts/EditStep.h"
#include "app/parts/FreeNames.h"
#include "app/parts/PartEdits.h"
#include "platform/document/DocumentObjectGroup.h"
#include "platform/jobs/Exceptions.h"
#include "platform/jobs/SequencerLauncher.h"
#include "platform/mesh/TakenMesh.h"
#include "platform/services/Repair.h"

#include <array>
#include <cstdint>
#include <new>

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

PartCombination::~PartCombination()
{
    m_isStopping = true;
    m_thread.waitForDone();
}

bool PartCombination::start(Mesh::Document& document, Task const& task)
{
    if (JobGuard::instance()->isBusy() || task.parts.empty())
        return false;
    m_document = &document;
    m_task = task;
    Kernels kernels;
    for (Mesh::DocumentObject const* const part : task.parts)
        kernels.push_back(part->meshProperty->shareMesh());
    m_hold = std::make_unique<JobGuard::Hold>();
    m_thread.start([this, kernels = std::move(kernels)] { run(kernels); });
    return true;
}

void PartCombination::mend(Kernels& kernels, Progress const& progress) const
{
    for (int const index : m_task.toMend) {
        MeshKernel copy(*kernels[std::size_t(index)]);
        copy.toRclMesh();
        Repair::RepairMethods(&copy).autoRepair_simple_advanced(progress);
        kernels[std::size_t(index)] = asReadOnly(copy);
    }
}

void PartCombination::run(Kernels kernels)
{
    Report report;
    SolidOperations::Result result;
    try {
        Base::SequencerLauncher display(namesOf(m_task.operation).job, 100, true);
        display.setCancelEnabled(true);
        int const mended = m_task.toMend.empty() ? 0 : 40;
        auto const show = [&](int from, int to) {
            return [&display, this, from, to](int percent) {
                if (m_isStopping)
                    throw Mell::AbortException("Aborting...");
                display.setProgress(std::uint64_t(from + percent * (to - from) / 100));
            };
        };
        mend(kernels, show(0, mended));
        result = SolidOperations::apply(m_task.operation, kernels, show(mended, 90));
        report.isOpen = isOpen(result.pieces, show(90, 100));
        report.nothing = result.nothing;
        report.bodies = result.bodies;
        report.outcome = result.pieces.empty() ? Outcome::Nothing : Outcome::Done;
    } catch (Mell::AbortException const&) {
        report.outcome = Outcome::Cancelled;
    } catch (Mell::FlawException const& flaw) {
        report.outcome = Outcome::Failed;
        report.reason = QString::fromUtf8(flaw.what());
        report.place = flaw.place();
        if (auto const* const own = dynamic_cast<SolidOperations::OperandFlaw const*>(&flaw))
            report.operand = own->operand();
        report.repairMayHelp = report.operand >= 0;
    } catch (Mell::Exception const& failure) {
        report.outcome = Outcome::Failed;
        report.reason = QString::fromUtf8(failure.what());
    } catch (std::bad_alloc const&) {
        report.outcome = Outcome::Failed;
        report.reason =
            tr("There is not enough memory; close other programs, or take fewer parts.");
    }
    if (report.outcome != Outcome::Done)
        result = {};
    kernels.clear();
    QMetaObject::invokeMethod(
        this,
        [this, report, result = std::move(result)] {
            if (report.outcome == Outcome::Done)
                take(result);
            m_hold.reset();
            emit finished(report);
        },
        Qt::QueuedConnection);
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
