// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cutjobs/common/CutFailure.h"
#include "platform/services/Repair.h"

#include <functional>
#include <string>

/// Checks a piece on a thread of its own and repairs it if it has errors; a piece without errors is
/// only read. It gets no clean-up after a repair. What was done goes to the log as well.
///
/// scope     what of the piece the repair may look at
/// progress  shows the repair's own percentages; may be empty
/// shown     the percentage that it shows so far. The check shows no other, and may be cancelled
/// failure   receives why it failed
/// returns   what was done and left
/// throws    as ServiceCall::run
Repair::Report repairPiece(MeshKernel& piece, Repair::Scope scope,
                           std::function<void(int)> const& progress, int shown,
                           CutFailure& failure);
