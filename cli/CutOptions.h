// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/PieceOptions.h"

/// What everything that cuts understands; the commands add what shapes their cut.
struct CutOptions
{
    CommonOptions common;
    PieceOptions pieces;
    /// A file that fails does not end the run.
    bool keepGoing = false;
    bool failIfUncut = false;
    /// The parts themselves are written too.
    bool keepOriginal = false;
    /// Measure, but cut and write nothing.
    bool dryRun = false;

    // In this order a command's help tells first what is read, then the cut, then what is written.
    void addSources(CLI::App& command);
    void addPieces(CLI::App& command);
};
