// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Report.h"

#include <map>
#include <string>
#include <vector>

/// One line of a list of jobs: a command, its files, and its options.
struct BatchJob
{
    /// Counted from 1.
    std::size_t line = 0;
    std::string command;
    std::vector<std::string> files;
    /// What stands behind each option, by its name with hyphens; empty for a switch.
    std::map<std::string, std::string> options;

    /// Of an option; empty if the job has none of that name.
    std::string valueOf(std::string const& option) const;
    /// The words of the command line that does the job, without the program.
    std::vector<std::string> arguments() const;
    /// What asks for this job: the same for the same job, whatever the order of its fields was.
    Report json() const;
};
