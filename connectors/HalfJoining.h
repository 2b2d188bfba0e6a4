// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "connectors/ConnectorRun.h"

/// Puts a raised solid on the lower half and takes its counterpart out of the upper half.
///
/// raised    trimmed to the material of the uncut part and joined to the lower half
/// hollow    taken out of the upper half
/// progress  of the stage; may be empty
/// throws    as Intersect::boolean
Halves joinRaisedAndHollow(PartOfRun const& part, MeshKernel& raised, MeshKernel& hollow,
                           std::function<void(int)> const& progress);

/// Takes the same solid out of both halves.
Halves takeOutOfBoth(PartOfRun const& part, MeshKernel& hollow,
                     std::function<void(int)> const& progress);
