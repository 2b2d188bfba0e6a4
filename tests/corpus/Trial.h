// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/corpus/FreecutRun.h"
#include "tests/corpus/Operations.h"

#include <filesystem>
#include <string>

namespace corpus {

/// What became of one operation on one part.
enum class Result
{
    Ok,
    /// Ended with an error, a sentence that says why, and no file left behind.
    Refused,
    /// Flaws of the part that a repair could not mend without changing its shape, and has told of.
    Left,
    /// The command line does not have the operation.
    Unknown,
    /// Pieces with crossings, edges of four or flat triangles, of a part that has none.
    Flawed,
    /// A piece has an edge without partner that the part does not have.
    Open,
    /// A point is solid in the wrong piece, in two or in none; or an error without a sentence.
    Wrong,
    OutOfMemory,
    Timeout,
    Crash,
};

/// A word for the table.
char const* nameOf(Result result);
/// Whether nobody may be given such a result.
bool isFailure(Result result);

struct Trial
{
    Result result = Result::Ok;
    /// What is wrong, or the sentence of a refusal.
    std::string text;
    /// The arguments of the command line.
    std::string command;
    double seconds = 0;
    std::size_t peakMegabytes = 0;
};

/// Runs an operation on a part that lies in `folder` as part.stl, and judges its pieces.
Trial tryOut(Operation const& operation, judge::Source const& source, std::string const& program,
             std::filesystem::path const& folder, Limits const& limits, std::size_t samples);

}  // namespace corpus
