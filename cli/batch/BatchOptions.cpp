// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/BatchOptions.h"

#include "cli/Errors.h"

#include <CLI/App.hpp>

void BatchOptions::addTo(CLI::App& command)
{
    command.add_option("JOBS", list,
                       "A list of jobs, one JSON object a line; - for standard input");
    command
        .add_option("--make", make,
                    "Write the jobs that this command line stands for, one for each of its files, "
                    "instead of doing any")
        ->type_name("'COMMAND ...'");
    command
        .add_option("--state", state,
                    "Remember in this folder what has been done: a second run does only what is "
                    "missing")
        ->type_name("DIR");
    command
        .add_option("--results", results,
                    "Write the results to this file, one line a job (default: \"-\", standard "
                    "output)")
        ->type_name("FILE|-");
    command
        .add_option("--shard", shard,
                    "Do one of N equal parts of the list only, as one of N machines that share the "
                    "state folder")
        ->type_name("I/N");
    command.add_flag("--merge", isMerge,
                     "Join the results of all parts of the list, which are in the state folder");
    command.add_option("--job-timeout", limits.seconds, "End a job after this many seconds")
        ->check(CLI::PositiveNumber)
        ->type_name("S");
    command
        .add_option_function<double>(
            "--job-memory",
            [this](double megabytes) { limits.memoryBytes = std::uint64_t(megabytes * 1e6); },
            "Let a job have this many megabytes")
        ->check(CLI::Range(32.0, 1e9))
        ->type_name("MB");
    command.add_option("--jobs", jobsAtOnce, "Run at most this many at once (default: all cores)")
        ->check(CLI::Range(1, 1024))
        ->type_name("N");
    command
        .add_option("--memory", memoryMb,
                    "Start no job that, by the size of its files, would need more than this many "
                    "megabytes together with those that run (default: most of what is free)")
        ->check(CLI::PositiveNumber)
        ->type_name("MB");
    command.add_flag("--retry-failed", retryFailed, "Do those again that have failed before");
    command.add_flag("--stable", isStable,
                     "Leave times and memory out of the results, so that two runs give the same");
    command.add_flag("--quiet", quiet, "Print neither summary nor progress");
}

void BatchOptions::check() const
{
    int const chosen = !list.empty() + !make.empty() + isMerge;
    if (chosen != 1)
        throw UsageError(
            "A batch takes a list of jobs, or --make, or --merge. See freecut batch "
            "--help.");
    if (isMerge && state.empty())
        throw UsageError("--merge needs the folder that the parts were done with: --state DIR.");
    if (!shard.empty() && state.empty())
        throw UsageError("--shard needs a folder that all parts share: --state DIR.");
}
