// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/BatchRun.h"

#include "cli/Cancel.h"
#include "cli/ExitStatus.h"
#include "cli/Failure.h"
#include "cli/batch/JobNeed.h"
#include "platform/jobs/Exceptions.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

/// Of memory that is free, what jobs may have; the rest is room for an estimate that was too low.
constexpr double shareOfFree = 0.8;

double freeMemoryMb()
{
    std::ifstream file("/proc/meminfo");
    std::string name, unit;
    for (double kilobytes = 0; file >> name >> kilobytes; std::getline(file, unit))
        if (name == "MemAvailable:")
            return kilobytes / 1000;
    return 1e6;
}

Shard shardOf(BatchOptions const& options)
{
    return options.shard.empty() ? Shard() : parseShard(options.shard);
}

std::vector<BatchJob> sharedBy(Shard const& shard, std::vector<BatchJob> jobs)
{
    std::erase_if(jobs, [&](BatchJob const& job) { return !shard.has(job); });
    return jobs;
}

}  // namespace

BatchRun::BatchRun(BatchOptions const& options, JobLines const& lines, std::vector<BatchJob> jobs)
    : m_options(options),
      m_lines(lines),
      m_shard(shardOf(options)),
      m_jobs(sharedBy(m_shard, std::move(jobs))),
      m_store(options.state),
      m_results(options.results, m_jobs.size()),
      m_progress(m_jobs.size(), options.quiet),
      m_memoryMb(options.memoryMb > 0 ? options.memoryMb : freeMemoryMb() * shareOfFree)
{}

int BatchRun::perform()
{
    m_linesToKeep.resize(m_jobs.size());
    ChildWatch const watch;
    while (m_next < m_jobs.size() || !m_running.empty()) {
        if (Cancel::isRequested())
            cancelAll();
        startWhatFits();
        m_progress.show();
        if (!m_running.empty())
            watch.wait();
        collect();
    }
    m_store.keepLines(m_shard, m_linesToKeep);
    m_results.finish();
    m_progress.wipe();
    m_progress.summarise();
    return m_status;
}

void BatchRun::startWhatFits()
{
    int const cores = std::max(1u, std::thread::hardware_concurrency());
    std::size_t const places = std::size_t(m_options.jobsAtOnce > 0 ? m_options.jobsAtOnce : cores);
    while (m_next < m_jobs.size() && m_running.size() < places && !Cancel::isRequested())
        if (!startNext())
            return;
}

bool BatchRun::startNext()
{
    auto const files = m_lines.filesReadBy(m_jobs[m_next]);
    double const need = neededMemoryMb(m_jobs[m_next], files);
    double needOfAll = need;
    for (Running const& running : m_running)
        needOfAll += running.needMb;
    // One that needs more than there is still gets its chance, alone.
    if (!m_running.empty() && needOfAll > m_memoryMb)
        return false;
    start(m_next++, need, files);
    return true;
}

void BatchRun::start(std::size_t place, double needMb, std::vector<std::string> const& filesRead)
{
    BatchJob const& job = m_jobs[place];
    std::string key;
    try {
        key = keyOf(job, filesRead);
        auto const known = m_store.find(key);
        if (known && holds(*known))
            return take(place, *known, false);
        m_running.push_back(
            {place, needMb,
             std::make_unique<JobAttempt>(job, key, m_store.makeWorkFolder(key),
                                          m_lines.writesPieces(job), m_options.limits)});
    } catch (...) {
        Failure const failure = failureInFlight();
        take(place, failureOf(job, key, failure.status, failure.message), true);
    }
}

bool BatchRun::holds(JobResult const& result) const
{
    bool const hasFailed = result.status() != EXIT_DONE && result.status() != EXIT_PIECE_OPEN;
    return !(hasFailed && m_options.retryFailed);
}

void BatchRun::collect()
{
    for (std::size_t i = 0; i < m_running.size();) {
        auto result = m_running[i].attempt->poll();
        if (!result) {
            ++i;
            continue;
        }
        if (result->fields.contains("measured"))
            result->fields["measured"]["expectedMemoryMb"] = m_running[i].needMb;
        if (!result->mayChange)
            m_store.keep(m_running[i].attempt->key(), *result);
        take(m_running[i].job, *result, true);
        m_running.erase(m_running.begin() + std::ptrdiff_t(i));
    }
}

void BatchRun::take(std::size_t place, JobResult const& result, bool isNew)
{
    BatchJob const& job = m_jobs[place];
    m_linesToKeep[place] = lineOf(result, job.line, true);
    m_results.set(place, lineOf(result, job.line, !m_options.isStable));
    m_progress.count(result.status(), isNew);
    if (isNew && result.fields.contains("measured"))
        m_progress.noteMemory(result.fields["measured"]["peakMemoryMb"].get<double>());
    m_status = worseOf(m_status, result.status());
    if (result.error().empty())
        return;
    m_progress.wipe();
    complain("Line " + std::to_string(job.line) + ": " + result.error());
}

void BatchRun::cancelAll()
{
    for (Running const& running : m_running)
        running.attempt->cancel();
    // What ends by itself now would be lost otherwise.
    ChildWatch const watch;
    while (!m_running.empty()) {
        watch.wait();
        collect();
    }
    m_progress.wipe();
    throw Mell::AbortException("Aborting...");
}
