// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/PartRepair.h"
#include "cutjobs/ResultIntegration.h"
#include "cutjobs/WorkerThread.h"
#include "dialogs/AnnouncedJob.h"

#include <functional>
#include <memory>

namespace Freecut {

/// The cuts of a dialog: a worker on a thread of its own, one announced job at a time, and the way
/// from what the worker has made to parts of a document.
class DialogCut
{
public:
    /// worker  taken over; it ends with its thread
    /// front   the dialog, as WorkerThread wants it
    template <typename Front>
    DialogCut(CutWorker* worker, Front* front)
    {
        WorkerThread::start(m_thread, worker, front);
    }
    /// Waits for a job that still runs.
    ~DialogCut() { WorkerThread::end(m_thread); }
    DialogCut(DialogCut const&) = delete;
    DialogCut& operator=(DialogCut const&) = delete;

    /// The worker has been told to begin.
    void begin() { m_job.start(); }
    void end() { m_job.end(); }
    bool isRunning() const { return m_job.isRunning(); }

    /// Tells why the worker has failed, and ends the job. Where the user wants the part mended,
    /// that is the next job.
    ///
    /// document  with the parts that the worker was given
    /// again     cuts anew, once the part has been mended
    void tellFailure(CutWorker const& worker, Base::Document* document,
                     std::function<void()> const& again);
    /// Makes parts of what the worker has made, in one step that can be undone, and tells what a
    /// person must know of it.
    ///
    /// worker  its last job has ended well
    /// leave   ends dialog and job, in the order that is the dialog's; this object may go by it
    template <typename Worker>
    static void takeResult(Worker& worker, Base::Document* document, IntegrationRules const& rules,
                           std::function<void()> const& leave)
    {
        integrate(worker.getResult(), worker.remarks(), document, rules, leave);
    }

private:
    /// pieces  a copy, for the worker may go with the dialog
    static void integrate(CutResultMap pieces, CutRemarks const& remarks, Base::Document* document,
                          IntegrationRules const& rules, std::function<void()> const& leave);

    void repair(Mesh::DocumentObject* part, Base::Document* document,
                std::function<void()> const& again);

    QThread m_thread;
    AnnouncedJob m_job;
    std::unique_ptr<PartRepair> m_repair;
    /// Has been mended for the cut that runs; only compared.
    Mesh::DocumentObject const* m_repairedPart = nullptr;
};

}  // namespace Freecut
