// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/jobs/WindowJob.h"
#include "platform/document/MeshDocumentObject.h"
#include "platform/services/FlawPlaces.h"
#include "platform/services/Repair.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Checks or repairs parts in the background, under a progress display with a cancel button. From
/// start() until finished() has been handled JobGuard counts it as a job, so that the parts stay as
/// they are.
///
/// thread  the user interface thread
class PartCheck : public QObject
{
    Q_OBJECT

public:
    using Counts = Repair::EvaluateErrors::Counts;

    enum class Kind
    {
        Check,
        Repair
    };
    enum class Outcome
    {
        Done,
        Cancelled,
        Failed
    };

    /// What was found in a part.
    struct Finding
    {
        Mesh::DocumentObject* part = nullptr;
        std::string name;
        std::shared_ptr<MeshKernel> kernel;
        Counts before;
        /// After a repair that made it better: what is left, and the mended kernel.
        Counts after;
        std::shared_ptr<MeshKernel> mended;
        /// Of what is there now, at most mostPlaces of each kind.
        std::vector<Repair::FlawPlace> places;
    };
    using Findings = std::vector<Finding>;
    static constexpr std::size_t mostPlaces = 1000;

    PartCheck() = default;
    /// Stops and waits for a job that runs; it then has no result.
    ~PartCheck() override;

    /// Begins; false while a job, this one or another, runs.
    ///
    /// parts  with a mesh each; they stay in their document until finished()
    bool start(Kind kind, std::vector<Mesh::DocumentObject*> const& parts);

signals:
    /// findings  complete if Done, else empty
    /// reason    the sentence for the user if Failed
    void finished(PartCheck::Kind kind, PartCheck::Outcome outcome,
                  PartCheck::Findings const& findings, QString const& reason);

private:
    static void inspect(Kind kind, Finding& finding, WindowJob::Progress const& progress);
    void take(Kind kind, Findings& findings, JobOutcome const& outcome);

    WindowJob m_job;
};
