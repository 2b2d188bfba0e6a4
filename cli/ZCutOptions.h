// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"

/// How much of the pieces is mended.
enum class RepairScope
{
    None,
    /// What the cut made or touched.
    Touched,
    All,
};

/// The command line of the Z cut.
struct ZCutOptions : CutOptions
{
    /// As typed; exactly one of the two is given.
    std::string height;
    std::vector<std::string> heights;
    RepairScope repair = RepairScope::Touched;

    void addTo(CLI::App& command);

    /// One height for each part. Throws UsageError that says what to change.
    std::vector<float> heightsFor(std::size_t partCount) const;
};
