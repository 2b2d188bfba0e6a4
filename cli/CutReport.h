// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/CutPart.h"
#include "cli/Report.h"

class Caller;

/// A remark, for a report.
Report remarkReport(CutRemark const& remark);

/// The parts with their pieces, for the report of a cut.
Report partsReport(std::vector<CutPart> const& parts);

/// Prints the pieces for a person to read, to standard output.
void printTable(std::vector<CutPart> const& parts);

/// Says what repairs did to the pieces of a part, in one line for each piece.
void tellOfRepairs(CutPart const& part, Caller& caller);

/// Says which pieces of a part are not closed, and what can be done.
void complainOfOpenPieces(CutPart const& part, bool isAllowed, Caller& caller);
