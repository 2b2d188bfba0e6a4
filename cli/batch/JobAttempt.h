// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/JobProcess.h"
#include "cli/batch/JobResult.h"

#include <filesystem>
#include <optional>

/// A job that runs: its process writes into a folder of its own, and what is finished goes from there
/// to where it belongs. So nothing half made is ever seen, however it ends.
class JobAttempt
{
public:
    /// workFolder   empty; goes with the attempt
    /// writesPieces of the command
    /// throws       Mell::Exception if no process can be made
    JobAttempt(BatchJob const& job, std::string key, std::filesystem::path workFolder,
               bool writesPieces, JobLimits const& limits);
    ~JobAttempt();

    /// None while it runs.
    std::optional<JobResult> poll();
    void cancel() { m_process->cancel(); }

    std::string const& key() const { return m_key; }

private:
    JobResult resultAt(JobEnd const& end) const;
    void deliverPieces(Report& report) const;

    BatchJob const& m_job;
    std::string m_key;
    std::filesystem::path m_workFolder;
    std::optional<JobProcess> m_process;
};
