// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

class MeshKernel;

/// Checks a piece on a thread of its own and repairs it if it has errors; a piece without errors is
/// only read. It gets no clean-up after a repair.
///
/// progress  shows the repair's own percentages; may be empty
/// throws    as ServiceCall::run
void repairPiece(MeshKernel& piece, std::function<void(int)> const& progress);
