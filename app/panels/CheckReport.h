// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/parts/PartCheck.h"

#include <QString>

/// What a check or a repair has found, in words for the user; plain text.
namespace CheckReport {

/// The kinds of errors that there are, with their numbers: "4 open edges, 1 self-intersection";
/// empty without errors.
QString errorsInWords(PartCheck::Counts const& counts);

/// One paragraph per part.
QString ofCheck(PartCheck::Findings const& findings);
QString ofRepair(PartCheck::Findings const& findings);

}  // namespace CheckReport
