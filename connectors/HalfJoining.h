// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"

// Both give up each plain half as soon as it has been read, since the halves of a large part are
// what a run needs its memory for.

/// Puts a raised solid on the lower half and takes its counterpart out of the upper half.
///
/// raised    trimmed to the material of the uncut part and joined to the lower half
/// hollow    taken out of the upper half
/// progress  of the stage; may be empty
/// throws    as Intersect::boolean
Halves joinRaisedAndHollow(PartOfRun& part, MeshKernel& raised, MeshKernel& hollow,
                           std::function<void(int)> const& progress);

/// Takes the same solid out of both halves.
Halves takeOutOfBoth(PartOfRun& part, MeshKernel& hollow, std::function<void(int)> const& progress);
