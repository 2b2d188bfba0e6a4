// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"
#include "platform/services/Intersect.h"

#include <functional>

/// Combines two closed solids into one kernel, by Intersect::boolean.
///
/// a, b    left intact
/// result  receives the combined solid
/// throws  what the service throws
void combineSolids(MeshKernel& a, MeshKernel& b, MeshKernel& result, Intersect::BooleanType type,
                   std::function<void(int)> const& progress);
