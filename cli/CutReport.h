// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/Report.h"
#include "cli/Stopwatch.h"

struct CutSeconds
{
    double load = 0;
    double cut = 0;
    double save = 0;
};

/// The report of a cut, which begins with the fields of `head`. The pieces are measured here;
/// `total` has run since the start.
Report cutReport(Report head, std::vector<CutPart> const& parts, CutSeconds const& seconds,
                 Stopwatch const& total, int threads);

/// Prints the pieces for a person to read, to standard output.
void printTable(std::vector<CutPart> const& parts);
