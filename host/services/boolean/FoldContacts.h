// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"

#include <vector>

/// Appends the contacts that folds make. Where two neighbours of one operand lie on each other in a
/// plane, what lies on one of them ends at their edge, and no other triangle there leaves the plane
/// to tell. So the edge is a curve on every third triangle of that plane, whichever operand it
/// belongs to.
///
/// contacts  those of the operands, which name the folds of the first by the second's triangles that
///           lie on them; and those of the second with itself, its folds among them
/// cost      in proportion to the contacts within planes
void addFoldContacts(OperandSoup const& soup, std::vector<TrianglePair>& contacts,
                     StageProgress& progress);
