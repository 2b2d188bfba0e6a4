// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/PieceOptions.h"

/// How much of the pieces is mended.
enum class RepairScope
{
    None,
    /// What the cut made or touched.
    Touched,
    All,
};

/// What everything that cuts understands; the commands add what shapes their cut.
struct CutOptions
{
    CommonOptions common;
    PieceOptions pieces;
    /// A file that fails does not end the run.
    bool keepGoing = false;
    bool failIfUncut = false;
    /// For the two pieces of a part, in the order of CutPiece::side; or one pattern for all pieces; or
    /// empty.
    std::vector<std::string> names;
    /// The parts themselves are written too.
    bool keepOriginal = false;
    /// Measure, but cut and write nothing.
    bool dryRun = false;
    RepairScope repair = RepairScope::None;
    /// Parts are cut while they are read, and never in memory as a whole.
    bool stream = false;

    // In this order a command's help tells first what is read, then the cut, then what is written.
    void addSources(CLI::App& command);
    /// The help names what `repair` is as the default.
    void addRepair(CLI::App& command);
    void addPieces(CLI::App& command);
    /// meeting  what keeps a triangle in memory, such as "planes meet"
    void addStream(CLI::App& command, char const* meeting);
    /// meanings  of the two names, such as "UPPER,LOWER"
    /// numbers   says which piece gets which number without them
    void addNames(CLI::App& command, char const* meanings, char const* numbers);
    /// For commands that do not make two pieces of a part.
    void addNamePattern(CLI::App& command);

    /// Throws UsageError for names that cannot tell two pieces apart, and for what is no pattern.
    void checkNames() const;
};
