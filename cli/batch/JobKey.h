// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/batch/BatchJob.h"

#include <string>
#include <vector>

/// What names a job's result: a hash (SHA-256, hexadecimal) of the program's version, of the job, and of
/// what is in the files that it reads. Where one of these changes, there is no result yet.
///
/// throws  Formats::FileError for a file that cannot be read
std::string keyOf(BatchJob const& job, std::vector<std::string> const& filesRead);

/// One of equal parts of a list, which several machines share without talking to each other.
struct Shard
{
    /// Counted from 1.
    std::size_t number = 1;
    std::size_t count = 1;

    /// Whether a job is in this part: decided by the job's text alone, so that no machine has to read
    /// what others work on.
    bool has(BatchJob const& job) const;
};

/// From text such as "3/16". Throws UsageError.
Shard parseShard(std::string const& text);
