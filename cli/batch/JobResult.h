// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/BatchJob.h"
#include "cli/batch/JobProcess.h"

/// What came of a job: one line of JSON.
struct JobResult
{
    Report fields;
    /// Another run may come to another end: it ran out of time or memory, or a file was in the way.
    bool mayChange = false;

    int status() const { return fields.at("status").get<int>(); }
    std::string error() const { return fields.value("error", std::string()); }
};

/// report    of the sub-command; null if it left none
/// messages  what the sub-command said
JobResult resultOf(BatchJob const& job, std::string const& key, JobEnd const& end, Report report,
                   std::string const& messages);

/// Of a job that could not be begun, or whose pieces could not be put where they belong.
JobResult failureOf(BatchJob const& job, std::string const& key, int status,
                    std::string const& error);

/// The line, without its end.
///
/// line          of the list of jobs, counted from 1
/// withMeasures  with times and memory, which differ between runs
std::string lineOf(JobResult const& result, std::size_t line, bool withMeasures);

/// The worse of two exit statuses: any failure is worse than a piece that is not closed.
int worseOf(int a, int b);
