// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/support/PieceJudge.h"

#include <random>
#include <string>
#include <vector>

/// What a run of one operation on one part left behind.
struct FuzzTrial
{
    /// The operation and its numbers, in words.
    std::string operation;
    /// The second operand; empty without one.
    Soup tool = {};
    std::vector<Soup> pieces = {};
    bool isRefused = false;
    /// Empty if nothing is wrong.
    std::string faults = {};
};

/// Writes what goes into each operation into the working folder before it runs, so that it is there
/// after a crash.
void writeFuzzInputs(std::string const& name);

/// An operation, by a part and random numbers.
struct FuzzOperation
{
    std::string name;
    FuzzTrial (*run)(judge::Source const& part, std::mt19937& random);
    /// In a thousand runs.
    unsigned share;
};

/// Cuts by planes, by tools and with connectors, the four combinations, and repair; all in process.
std::vector<FuzzOperation> const& fuzzOperations();
