// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutOptions.h"

/// What becomes of two solids A and B.
enum class BooleanOperation
{
    Union,
    Intersect,
    Subtract,
    Split,
};

/// The word for an operation on the command line, without its dashes.
char const* nameOf(BooleanOperation operation);

/// The command line of a boolean, whose files are A and B.
struct BooleanOptions : CutOptions
{
    BooleanOperation operation = BooleanOperation::Union;

    void addTo(CLI::App& command);
};
