// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Caller.h"
#include "cli/CommonOptions.h"
#include "cli/Failure.h"
#include "cli/Report.h"
#include "cli/Stopwatch.h"

#include <optional>

/// The report of one command, which begins and ends alike for all of them, and is written whether
/// the command succeeds or fails; only a cancel leaves none.
class CommandReport
{
public:
    /// Raised when a field changes its meaning or goes; new fields do not raise it.
    static constexpr int schema = 1;

    /// throws  as checkReportTarget
    CommandReport(std::string const& command, CommonOptions const& options, Caller& caller);

    bool isWanted() const { return m_caller.wantsReport() || !m_options.report.empty(); }
    /// The fields of the command itself, which stand before the parts.
    Report& head() { return m_head; }
    /// Runs a stage of the command; the report tells how long it took.
    template <typename Work>
    void time(char const* stage, Work const& work)
    {
        Stopwatch const watch;
        work();
        m_seconds[stage] = watch.seconds();
    }

    /// Writes the report if a file is named for it, and hands it to the caller.
    ///
    /// failure  of the whole command, not of one of its parts
    /// throws   Formats::FileError
    void write(Report parts, int status, std::optional<Failure> const& failure);

private:
    CommonOptions const& m_options;
    Caller& m_caller;
    Report m_head;
    Report m_seconds = Report::object();
    Stopwatch m_total;
};
