// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/PieceOptions.h"

/// Gives every piece the format that is asked for, or else that of its part, and its part's colour.
/// See docs/decisions/0022-colours.md.
void settleForms(std::vector<CutPart>& parts, PieceOptions const& options);
