// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"

/// The command line of the Z cut.
struct ZCutOptions : CutOptions
{
    /// As typed; exactly one of the three is given.
    std::string height;
    std::vector<std::string> heights;
    std::string every;

    /// Pieces are mended where the cut touched them, unless told otherwise.
    ZCutOptions();

    void addTo(CLI::App& command);

    bool isSliced() const { return !every.empty(); }
    /// Millimetres from plane to plane. Throws UsageError that says what to change.
    float distance() const;

    /// One height for each part, unless they are sliced. Throws UsageError that says what to change.
    std::vector<float> heightsFor(std::size_t partCount) const;
};
