// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/jobs/WindowJob.h"
#include "app/parts/SolidOperations.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <QObject>

#include <optional>
#include <set>

/// Makes one part of several, or several of one, in the background under a progress display with a
/// cancel button, and puts what was made into the document as one undo step. From start() until
/// finished() has been handled JobGuard counts it as a job, so that the parts stay as they are.
///
/// What one part becomes takes its place: its name, look, group and selection. Several pieces are
/// parts of their own with its look and group, and are selected.
///
/// thread  the user interface thread
class PartCombination : public QObject
{
    Q_OBJECT

public:
    using Operation = SolidOperations::Operation;

    struct Task
    {
        Operation operation = Operation::Join;
        /// The first is the one from which is taken away, or which is split.
        std::vector<Mesh::DocumentObject*> parts;
        /// Of those from which nothing is taken: they stay, where the others would go.
        bool keepsOthers = false;
        /// Copies of these are mended before they are used.
        std::set<int> toMend;
    };
    enum class Outcome
    {
        Done,
        /// There was nothing to be made; the document is as it was.
        Nothing,
        Cancelled,
        Failed
    };
    struct Report
    {
        Outcome outcome = Outcome::Done;
        SolidOperations::Nothing nothing = SolidOperations::Nothing::No;
        std::size_t bodies = 0;
        /// If Done: what was made has open edges, as one of the parts had.
        bool isOpen = false;
        /// If Done: what was made crosses itself where coordinates had to be rounded.
        bool isCrossing = false;
        /// If Failed: what is wrong, of the part that is to blame by its name, and what to do about
        /// it unless a repair may help; where it is known the place in world millimetres and which
        /// of the parts is to blame, else -1.
        QString reason;
        std::optional<UPoint3<float>> place;
        int operand = -1;
        bool repairMayHelp = false;
    };

    PartCombination();
    /// Stops and waits for a job that runs; it then has no result.
    ~PartCombination() override;

    /// Begins; false while a job, this one or another, runs.
    ///
    /// parts  of the task: of the document, each once; one at least
    bool start(Mesh::Document& document, Task const& task);
    Task const& task() const { return m_task; }

signals:
    void finished(PartCombination::Report const& report);

private:
    using Kernels = std::vector<SolidOperations::Kernel>;

    struct Run;

    static void combine(Run& run, WindowJob::Progress const& progress);
    static void blame(SolidOperations::OperandFlaw const& flaw, Run& run);
    void end(Run& run, JobOutcome const& outcome);
    void take(SolidOperations::Result const& result);
    void replaceFirst(SolidOperations::Piece const& piece);
    void addPieces(std::vector<SolidOperations::Piece> const& pieces);

    Mesh::Document* m_document = nullptr;
    Task m_task;
    Report m_report;
    WindowJob m_job;
};
