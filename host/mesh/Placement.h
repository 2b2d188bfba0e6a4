// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>

/// Applies a matrix to all records of a mesh. Under a reflection the triangles are turned round, so
/// that a solid that faced outward still does. Neighbour links stay valid.
void applyMatrix(UMesh<float>& mesh, UMatrix4<float> const& matrix);

/// A kernel with an identity matrix and the records of the source as it is placed: its own, or
/// those of the source until one of the two is written to.
std::shared_ptr<MeshKernel> placedCopy(MeshKernel const& source);

/// Moves all records of one mesh to the end of another. The identifiers are renumbered.
void appendRecords(UMesh<float>& mesh, UMesh<float>& source);
