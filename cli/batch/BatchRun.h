// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/BatchOptions.h"
#include "cli/batch/BatchProgress.h"
#include "cli/batch/JobAttempt.h"
#include "cli/batch/JobLines.h"
#include "cli/batch/JobStore.h"
#include "cli/batch/ResultLines.h"

#include <memory>
#include <vector>

/// Does a list of jobs, several at once, each in a process of its own under limits, so that none can
/// harm another.
class BatchRun
{
public:
    /// jobs  those that are to be done here
    BatchRun(BatchOptions const& options, JobLines const& lines, std::vector<BatchJob> jobs);

    /// returns  the worst exit status of all jobs
    /// throws   Mell::AbortException after a cancel, which ends those that run; Formats::FileError if
    ///          results cannot be written
    int perform();

private:
    struct Running
    {
        std::size_t job;
        double needMb;
        std::unique_ptr<JobAttempt> attempt;
    };

    void startWhatFits();
    /// Whether there was room for it.
    bool startNext();
    /// Starts it, unless its result is known.
    void start(std::size_t job, double needMb, std::vector<std::string> const& filesRead);
    bool holds(JobResult const& result) const;
    void collect();
    void take(std::size_t job, JobResult const& result, bool isNew);
    [[noreturn]] void cancelAll();

    BatchOptions const& m_options;
    JobLines const& m_lines;
    Shard m_shard;
    std::vector<BatchJob> m_jobs;
    JobStore m_store;
    ResultLines m_results;
    BatchProgress m_progress;
    std::vector<Running> m_running;
    /// With all that is measured, in the order of the jobs.
    std::vector<std::string> m_linesToKeep;
    std::size_t m_next = 0;
    double m_memoryMb;
    int m_status = 0;
};
