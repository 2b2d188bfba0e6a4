// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/batch/JobResult.h"

#include "cli/ExitStatus.h"
#include "cli/Numbers.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {

Report headOf(BatchJob const& job, std::string const& key)
{
    Report head;
    head["key"] = key;
    head["command"] = job.command;
    head["files"] = job.files;
    return head;
}

std::string endOf(JobEnd const& end)
{
    if (end.wasTimeOver)
        return "It was ended after " + fixed(end.seconds, 1) +
               " s; --job-timeout gives a job more time.";
    return std::string("It was ended by the system (") + strsignal(end.signal) +
           "); if it ran out of memory, --job-memory gives a job more.";
}

/// What freecut said, without its name in front.
std::string firstMessageOf(std::string const& messages)
{
    std::string const name = "freecut: ";
    std::string text = messages.substr(0, messages.find('\n'));
    return text.starts_with(name) ? text.substr(name.size()) : text;
}

std::string errorOf(Report const& report, std::string const& messages)
{
    if (report.is_object() && report.contains("error"))
        return report["error"].get<std::string>();
    if (report.is_object())
        for (Report const& part : report.value("parts", Report::array()))
            if (part.contains("error"))
                return part["error"].get<std::string>();
    return firstMessageOf(messages);
}

}  // namespace

JobResult resultOf(BatchJob const& job, std::string const& key, JobEnd const& end, Report report,
                   std::string const& messages)
{
    JobResult result{headOf(job, key)};
    int const status = end.isByItself() ? end.status : EXIT_CUT_FAILED;
    result.fields["status"] = status;
    if (!end.isByItself())
        result.fields["error"] = endOf(end);
    else if (status != EXIT_DONE && status != EXIT_PIECE_OPEN)
        result.fields["error"] = errorOf(report, messages);
    bool const isShortOfMemory = result.error().find("not enough memory") != std::string::npos;
    result.mayChange = !end.isByItself() || status == EXIT_FILE_FAILED || isShortOfMemory;
    result.fields["measured"] = {{"seconds", end.seconds},
                                 {"peakMemoryMb", double(end.peakMemoryBytes) / 1e6}};
    if (report.is_object() && end.isByItself()) {
        result.fields["measured"]["stages"] = report["seconds"];
        report.erase("seconds");
        result.fields["report"] = std::move(report);
    }
    return result;
}

JobResult failureOf(BatchJob const& job, std::string const& key, int status,
                    std::string const& error)
{
    JobResult result{headOf(job, key), true};
    result.fields["status"] = status;
    result.fields["error"] = error;
    return result;
}

std::string lineOf(JobResult const& result, std::size_t line, bool withMeasures)
{
    Report fields;
    fields["line"] = line;
    fields.update(result.fields);
    if (!withMeasures)
        fields.erase("measured");
    return fields.dump(-1, ' ', false, Report::error_handler_t::replace);
}

int worseOf(int a, int b)
{
    constexpr std::array fromGoodToBad{EXIT_DONE, EXIT_PIECE_OPEN, EXIT_CUT_FAILED,
                                       EXIT_FILE_FAILED, EXIT_WRONG_USAGE};
    auto const badness = [&](int status) {
        return std::find(fromGoodToBad.begin(), fromGoodToBad.end(), status);
    };
    return badness(a) < badness(b) ? b : a;
}
