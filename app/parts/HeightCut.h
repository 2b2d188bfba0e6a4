// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/jobs/WindowJob.h"
#include "platform/document/MeshDocument.h"
#include "platform/document/MeshDocumentObject.h"

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

/// Cuts parts at several heights at once, in the background, under a progress display with a cancel
/// button. The pieces take the places of the parts in one undo step, are selected, and remember the
/// planes. All parts are cut or none: what fails or is cancelled leaves the document as it was.
///
/// thread  the user interface thread
class HeightCut : public QObject
{
    Q_OBJECT

public:
    using Parts = std::vector<Mesh::DocumentObject*>;

    enum class Keep
    {
        All,
        /// Of each part the piece above all heights, or below all.
        Upper,
        Lower
    };
    struct Plan
    {
        /// World millimetres, in any order.
        std::vector<double> heights;
        Keep keep = Keep::All;
    };
    enum class Outcome
    {
        Done,
        /// No height goes through any of the parts.
        NothingMet,
        Cancelled,
        Failed
    };

    HeightCut();
    /// Stops and waits for a job that runs; it then has no result.
    ~HeightCut() override;

    /// Begins; false while a job, this one or another, runs. The parts stay in their document until
    /// finished().
    bool start(Mesh::Document& document, Parts const& parts, Plan const& plan);

signals:
    /// pieces  how many there are now
    /// reason  the sentence for the user if Failed
    void finished(HeightCut::Outcome outcome, int pieces, QString const& reason);

private:
    using Kernel = std::shared_ptr<MeshKernel>;
    using Progress = std::function<void(int)>;

    struct Slices
    {
        Mesh::DocumentObject* part = nullptr;
        Kernel kernel;
        std::string name;
        std::vector<double> heights;
        /// From below.
        std::vector<Kernel> pieces;
    };

    /// What the job works on and makes.
    struct Run
    {
        std::vector<Slices> slices;
        /// The part at which it is.
        std::string at;
    };

    static void cut(Run& run, Progress const& progress);
    /// What a repair may help with says so.
    static std::vector<Kernel> slicesOf(Slices const& slices, Progress const& progress);
    void take(Run const& run, JobOutcome const& outcome);
    int integrate(std::vector<Slices> const& slices) const;

    Mesh::Document* m_document = nullptr;
    Keep m_keep = Keep::All;
    struct Result
    {
        Outcome outcome = Outcome::Done;
        int pieces = 0;
        QString reason;
    };
    Result m_result;
    WindowJob m_job;
};
