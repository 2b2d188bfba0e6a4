// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CommonOptions.h"
#include "cli/PieceOptions.h"

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

/// The command line of a boolean.
struct BooleanOptions
{
    /// Its files are A and B.
    CommonOptions common;
    BooleanOperation operation = BooleanOperation::Union;
    PieceOptions pieces;

    void addTo(CLI::App& command);
};
