// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/PieceRules.h"

#include <map>
#include <random>
#include <string>
#include <vector>

/// Runs booleans on two small parts that coincide, overlap and cross themselves, one per seed, and
/// judges them by winding numbers beside the surfaces: thousands in a second.
class SmallRuns
{
public:
    /// False if something is wrong; it has been told then.
    bool run(unsigned seed);

    unsigned long operations() const { return m_operations; }
    void printCounts() const;

private:
    unsigned long m_operations = 0;
    unsigned long m_points = 0;
    std::map<std::string, unsigned long> m_refusals;
};
