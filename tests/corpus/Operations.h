// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/PieceJudge.h"

#include <string>
#include <utility>
#include <vector>

namespace corpus {

/// One call of the command line and what has to hold of its pieces.
struct Job
{
    /// Without the options that name the folder and the format of the pieces.
    std::vector<std::string> arguments;
    /// Files that it needs beside the part, by name.
    std::vector<std::pair<std::string, Soup>> tools;
    judge::Rule rule;
    /// Whether no piece may have a flaw, even if the part has it, without a word that it was left.
    bool mends = false;
};

struct Operation
{
    std::string name;
    /// The job on a part that lies in `file`. Sizes follow the part's.
    Job (*job)(judge::Source const& source, std::string const& file);
};

/// Every operation of the command line that makes pieces, in the order of the table.
std::vector<Operation> const& operations();

}  // namespace corpus
