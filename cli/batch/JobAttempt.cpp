// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobAttempt.h"

#include "cli/Failure.h"
#include "cli/batch/PieceDelivery.h"

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

fs::path reportIn(fs::path const& folder)
{
    return folder / "report.json";
}

fs::path messagesIn(fs::path const& folder)
{
    return folder / "messages.txt";
}

fs::path piecesIn(fs::path const& folder)
{
    return folder / "pieces";
}

std::vector<std::string> argumentsOf(BatchJob job, fs::path const& folder, bool writesPieces)
{
    job.options["--json"] = reportIn(folder).string();
    job.options["--quiet"] = "";
    if (writesPieces)
        job.options["--output"] = piecesIn(folder).string();
    // Jobs run beside each other, so that each needs no threads.
    job.options.emplace("--threads", "1");
    return job.arguments();
}

std::string textOf(fs::path const& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

JobAttempt::JobAttempt(BatchJob const& job, std::string key, fs::path workFolder, bool writesPieces,
                       JobLimits const& limits)
    : m_job(job), m_key(std::move(key)), m_workFolder(std::move(workFolder))
{
    m_process.emplace(argumentsOf(job, m_workFolder, writesPieces), messagesIn(m_workFolder),
                      limits);
}

JobAttempt::~JobAttempt()
{
    m_process.reset();
    std::error_code error;
    fs::remove_all(m_workFolder, error);
}

std::optional<JobResult> JobAttempt::poll()
{
    auto const end = m_process->poll();
    if (!end)
        return {};
    try {
        return resultAt(*end);
    } catch (...) {
        Failure const failure = failureInFlight();
        return failureOf(m_job, m_key, failure.status, failure.message);
    }
}

JobResult JobAttempt::resultAt(JobEnd const& end) const
{
    Report report = Report::parse(textOf(reportIn(m_workFolder)), nullptr, false);
    if (report.is_discarded())
        report = nullptr;
    if (report.is_object() && end.isByItself())
        deliverPieces(report);
    return resultOf(m_job, m_key, end, std::move(report), textOf(messagesIn(m_workFolder)));
}

void JobAttempt::deliverPieces(Report& report) const
{
    std::vector<fs::path> files;
    std::vector<Report*> names;
    for (Report& part : report["parts"])
        if (part.contains("pieces"))
            for (Report& piece : part["pieces"])
                if (std::string const file = piece.value("file", ""); !file.empty()) {
                    files.emplace_back(file);
                    names.push_back(&piece["file"]);
                }
    std::string const folder = m_job.valueOf("--output");
    auto const places =
        deliver(files, folder.empty() ? "." : folder, m_job.options.contains("--force"));
    for (std::size_t i = 0; i < names.size(); ++i)
        *names[i] = places[i].string();
}
