// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/MeshArrays.h"

#include <memory>

/// What copyArrays() gives in the frame of the world, of a kernel that is not needed any more. Its
/// triangles go back to the system while they are copied, so that both are never there as a whole.
///
/// kernel    its mesh belongs to nobody else
/// progress  may throw, and what it throws is let pass
MeshArrays takeArrays(std::unique_ptr<MeshKernel> kernel, StageProgress& progress);
