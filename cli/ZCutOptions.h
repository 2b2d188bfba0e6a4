// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/PieceOptions.h"

/// The command line of the Z cut.
struct ZCutOptions
{
    CommonOptions common;
    /// As typed; exactly one of the two is given.
    std::string height;
    std::vector<std::string> heights;
    bool repair = true;
    PieceOptions pieces;

    void addTo(CLI::App& command);

    /// One height for each part. Throws UsageError that says what to change.
    std::vector<float> heightsFor(std::size_t partCount) const;
    bool isOneByOne() const { return height.empty(); }
};
