// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandReport.h"

#include "host/jobs/Threads.h"

CommandReport::CommandReport(std::string const& command, CommonOptions const& options,
                             Caller& caller)
    : m_options(options), m_caller(caller)
{
    checkReportTarget(options.report, options.files);
    m_head["schema"] = schema;
    m_head["command"] = command;
}

void CommandReport::write(Report parts, int status, std::optional<Failure> const& failure)
{
    if (!isWanted())
        return;
    Report report = m_head;
    report["parts"] = std::move(parts);
    report["status"] = status;
    if (failure)
        report["error"] = failure->message;
    report["seconds"] = m_seconds;
    report["seconds"]["total"] = m_total.seconds();
    report["threads"] = Threads::threadCount();
    m_caller.takeReport(report);
    if (!m_options.report.empty())
        writeReport(m_options.report, report);
}
