// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Cancel.h"
#include "cli/ExitStatus.h"
#include "cli/SubCommands.h"
#include "cli/batch/BatchRun.h"
#include "host/formats/FileError.h"

#include <CLI/App.hpp>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>

namespace {

std::string textOf(std::string const& list)
{
    if (list == standardStream) {
        Cancel::AtOnce const waiting;
        return {std::istreambuf_iterator<char>(std::cin), {}};
    }
    std::ifstream file(list, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), {}};
    if (!file)
        throw Formats::FileError(list, "it cannot be read.");
    return text;
}

int makeList(BatchOptions const& options, JobLines const& lines)
{
    auto const jobs = lines.make(options.make);
    ResultLines list(options.results, jobs.size());
    for (std::size_t i = 0; i < jobs.size(); ++i)
        list.set(i, jobs[i].json().dump(-1, ' ', false, Report::error_handler_t::replace));
    list.finish();
    return EXIT_DONE;
}

int mergeResults(BatchOptions const& options)
{
    auto lines = JobStore(options.state).allLines();
    std::stable_sort(lines.begin(), lines.end(), [](Report const& a, Report const& b) {
        return a["line"].get<std::size_t>() < b["line"].get<std::size_t>();
    });
    ResultLines results(options.results, lines.size());
    int status = EXIT_DONE;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        status = worseOf(status, lines[i]["status"].get<int>());
        if (options.isStable)
            lines[i].erase("measured");
        results.set(i, lines[i].dump(-1, ' ', false, Report::error_handler_t::replace));
    }
    results.finish();
    return status;
}

int runBatch(BatchOptions const& options, JobLines const& lines)
{
    options.check();
    if (!options.make.empty())
        return makeList(options, lines);
    if (options.isMerge)
        return mergeResults(options);
    return BatchRun(options, lines, lines.read(textOf(options.list), options.list)).perform();
}

}  // namespace

void addBatch(CLI::App& commandLine, Action& action)
{
    CLI::App* const command = commandLine.add_subcommand(
        "batch", "Do a list of jobs, several at once, each in a process of its own.");
    auto const options = std::make_shared<BatchOptions>();
    options->addTo(*command);
    command->footer(
        "Examples:\n"
        "  freecut batch --make \"zcut models/*.stl --height 40 --output pieces\" > jobs.jsonl\n"
        "  freecut batch jobs.jsonl --state done --results results.jsonl\n"
        "  freecut batch jobs.jsonl --state shared/done --shard 3/16\n"
        "  freecut batch --merge --state shared/done\n"
        "\n"
        "A job is a JSON object with \"command\", \"files\" and options by their long names:\n"
        "  {\"command\": \"zcut\", \"files\": [\"a.stl\"], \"height\": 40, \"output\": "
        "\"pieces\"}\n"
        "Its pieces appear when all of them are complete. A result has the job's line, exit "
        "status,\n"
        "report, time and memory. With --state, jobs whose files, options and program are the "
        "same\n"
        "as in a run before are not done again, unless time, memory or a file was what failed. "
        "The\n"
        "exit status is that of the worst job.");
    command->callback([options, &action, &commandLine] {
        action = [options, &commandLine](Caller&) {
            return runBatch(*options, JobLines(textsOf(commandLine)));
        };
    });
}
