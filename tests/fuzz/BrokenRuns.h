// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/fuzz/FuzzTrials.h"

#include <map>
#include <string>
#include <vector>

/// Runs operations on broken parts, one per seed.
class BrokenRuns
{
public:
    /// operation     the only one, or none for all by their shares
    /// withInverted  shells inside out, and triangles that miss, come twice or are turned
    BrokenRuns(std::string const& operation, bool withInverted);

    /// False if something is wrong; it has been told then.
    bool run(unsigned seed);

    unsigned long operations() const;
    /// A line per operation: runs, refusals, failures, processor time for each run.
    void printCounts() const;

private:
    struct Counts
    {
        unsigned long runs = 0;
        unsigned long refusals = 0;
        unsigned long failures = 0;
        double seconds = 0;
    };

    FuzzOperation const& choose(std::mt19937& random) const;
    Soup makePart(std::mt19937& random) const;

    std::vector<FuzzOperation> m_operations;
    bool m_withInverted;
    std::map<std::string, Counts> m_counts;
};
