// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/// How the percentages of one service call become those of a whole connector run: a stage is a
/// share of one part's hundred percent, a span a share of a stage. Functions over an empty function
/// are empty.
namespace ConnectorProgress {

/// A share of a hundred percent.
struct Share
{
    int start;
    int span;

    bool operator==(Share const&) const = default;
};

/// The percentage of the run for a percentage x of a stage; an x above 100 is the stage's end.
int overall(int x, Share stage, int part, int partCount);

/// A progress function for one stage of one part.
std::function<void(int)> stage(std::function<void(int)> progress, Share share, int part,
                               int partCount);

/// A progress function for one service call within a stage.
std::function<void(int)> span(std::function<void(int)> stage, Share share);

/// What long work between the stages calls now and then, so that a cancel takes effect. It reports
/// no number: it asks the progress display, at most every ten milliseconds, and throws
/// Mell::AbortException "Aborting..." if the user has cancelled.
using Poll = std::function<void()>;
Poll poll();

}  // namespace ConnectorProgress
