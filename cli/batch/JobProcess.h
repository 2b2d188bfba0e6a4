// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Stopwatch.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

/// What one job may use; 0 for as much as there is.
struct JobLimits
{
    double seconds = 0;
    std::uint64_t memoryBytes = 0;
};

/// How a process has ended.
struct JobEnd
{
    /// As freecut ends; meaningless after a signal.
    int status = 0;
    /// 0 if none ended it.
    int signal = 0;
    bool wasTimeOver = false;
    double seconds = 0;
    std::uint64_t peakMemoryBytes = 0;

    /// Neither ended by a signal nor cancelled; its status and report hold.
    bool isByItself() const { return signal == 0 && status < 128; }
};

/// A freecut of its own, which ends when this program does, however that ends.
class JobProcess
{
public:
    /// messages  the file that takes what it says
    /// throws    Mell::Exception if no process can be made
    JobProcess(std::vector<std::string> const& arguments, std::filesystem::path const& messages,
               JobLimits const& limits);
    /// One that still runs is ended at once.
    ~JobProcess();
    JobProcess(JobProcess const&) = delete;
    JobProcess& operator=(JobProcess const&) = delete;

    /// Whether and how it has ended. One that has had its time is asked to end, and made to two seconds
    /// later.
    std::optional<JobEnd> poll();
    /// Asks it to end.
    void cancel();

private:
    void endIfTimeIsOver();

    JobLimits m_limits;
    Stopwatch m_sinceStart;
    int m_id = -1;
    std::optional<double> m_askedAt;
    bool m_wasTimeOver = false;
};

/// While one lives, wait() is woken by processes that end.
class ChildWatch
{
public:
    ChildWatch();
    ~ChildWatch();
    ChildWatch(ChildWatch const&) = delete;
    ChildWatch& operator=(ChildWatch const&) = delete;

    /// Returns when a process has ended or a signal has come, after 50 ms at the latest.
    void wait() const;
};
