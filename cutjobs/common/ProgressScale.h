// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

/// Maps the percentage that one service call reports to a percentage of the whole job. A value
/// above 100 stands for the end of that call's stage.
namespace ProgressScale {

/// percent    what the service reports
/// part       index of the part at hand
/// partCount  number of parts of the job, at least 1
using Rule = int (*)(int percent, int part, int partCount);

/// Around a plane cut.
int planeCut(int percent, int part, int partCount);
/// Around the one pass that splits a part by a solid tool.
int splitBySolid(int percent, int part, int partCount);
/// Around the first boolean of a cut with clearance: the first half of the part's share.
int firstBoolean(int percent, int part, int partCount);
/// Around the second boolean of a cut with clearance. It runs up to twice the job's end, and
/// callers report 100 when the job is done.
int secondBoolean(int percent, int part, int partCount);

/// What a job reports once the part at hand is done.
int partDone(int part, int partCount);

/// A progress function for one service call that forwards to the job's function by the rule. With
/// an empty job function it does nothing.
std::function<void(int)> scaled(std::function<void(int)> progress, Rule rule, int part,
                                int partCount);

}  // namespace ProgressScale
