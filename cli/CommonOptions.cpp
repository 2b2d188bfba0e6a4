// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommonOptions.h"

#include "cli/Caller.h"
#include "cli/Errors.h"
#include "cli/Numbers.h"
#include "host/jobs/Threads.h"

#include <CLI/App.hpp>

#include <map>

namespace {

/// In millimetres.
std::map<std::string, float> const unitLengths = {
    {"mm", 1.0f}, {"cm", 10.0f}, {"m", 1000.0f}, {"inch", 25.4f}};

}  // namespace

void CommonOptions::addTo(CLI::App& command)
{
    // Each command says what its files are.
    command.add_option("FILE", files)->required();
    command
        .add_option("--unit", unit,
                    "What the numbers of files are that do not say it themselves, which is all but "
                    "3MF (default: "
                    "mm)")
        ->check(CLI::IsMember(unitLengths))
        ->type_name("UNIT");
    command.add_option("--scale", scaleText, "Multiply the parts by this first")->type_name("F");
    command
        .add_option("--json", report,
                    "Write a report to this file, replacing it, or to standard output for \"-\"")
        ->type_name("FILE|-");
    command.add_option("--threads", threads, "Use at most this many threads (default: all cores)")
        ->check(CLI::Range(1, 1024))
        ->type_name("N");
    command.add_flag("--quiet", quiet, "Print neither table nor progress");
}

SourceScale CommonOptions::scale() const
{
    float const unitLength = unitLengths.at(unit);
    if (scaleText.empty())
        return {1, unitLength};
    std::optional<float> const scale = parseNumber(scaleText);
    if (!scale || !(*scale > 0))
        throw UsageError("--scale takes a number above 0 such as 25.4, but got \"" + scaleText +
                         "\".");
    return {*scale, unitLength};
}

void addManyFiles(CLI::App& command, CommonOptions& common, bool& keepGoing)
{
    command.get_option("FILE")->description(
        "The parts: STL, OBJ, PLY, OFF or 3MF files, folders of these, patterns in quotes such as "
        "\"parts/*.stl\", or - for standard input");
    command.add_flag("--recursive", common.isRecursive,
                     "Take the files of folders within folders too");
    command.add_flag("--keep-going", keepGoing,
                     "Carry on with the other files when one fails; the exit status tells that "
                     "one did");
}

void applyCommonOptions(CommonOptions const& options, Caller& caller)
{
    options.scale();
    if (options.threads > 0)
        Threads::setThreadCount(options.threads);
    Base::setProgressSink(caller.progressSink(options.quiet));
}
