// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/ConnectorOptions.h"
#include "cli/CutOptions.h"
#include "tools/PlanePlacement.h"

#include <optional>

/// The command line of a section cut.
struct SectionOptions : CutOptions
{
    // As typed.
    std::string centerText;
    std::string normalText;
    std::string sizeText;
    /// The plane ends at its rectangle.
    bool bounded = false;
    ConnectorOptions connectors;

    void addTo(CLI::App& command);

    // These throw UsageError that says what to change.
    UPoint3<float> center() const;
    /// A unit vector.
    UVector3<float> normal() const;
    /// None if it was not given.
    std::optional<Freecut::PlaneSize> size() const;
    /// What was given that only a cut of parts in memory can do.
    std::vector<std::string> givenForMemory() const;
    /// All of it, before anything is read.
    void check() const;
};
