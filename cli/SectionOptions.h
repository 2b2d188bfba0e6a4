// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/ConnectorOptions.h"
#include "cli/PieceOptions.h"
#include "tools/PlanePlacement.h"

#include <optional>

/// The command line of a section cut.
struct SectionOptions
{
    CommonOptions common;
    // As typed.
    std::string centerText;
    std::string normalText;
    std::string sizeText;
    /// The plane ends at its rectangle.
    bool bounded = false;
    bool keepOriginal = false;
    /// Only measure.
    bool dryRun = false;
    ConnectorOptions connectors;
    PieceOptions pieces;

    void addTo(CLI::App& command);

    // These throw UsageError that says what to change.
    UPoint3<float> center() const;
    /// A unit vector.
    UVector3<float> normal() const;
    /// None if it was not given.
    std::optional<Freecut::PlaneSize> size() const;
    /// All of it, before anything is read.
    void check() const;
};
