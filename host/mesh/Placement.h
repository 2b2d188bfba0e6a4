// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>

/// Applies a matrix to all records of a mesh. Under a reflection the triangles are turned round, so
/// that a solid that faced outward still does. Neighbour links stay valid.
void applyMatrix(UMesh<float>& mesh, UMatrix4<float> const& matrix);

/// A kernel with an identity matrix and records of its own that are those of the source as it is
/// placed.
std::shared_ptr<MeshKernel> placedCopy(MeshKernel const& source);

/// Moves all records of one mesh to the end of another. The identifiers are renumbered.
void appendRecords(UMesh<float>& mesh, UMesh<float>& source);

/// Volume (positive for an outward-facing solid) and surface of a kernel as it is placed.
struct VolumeAndArea
{
    double volume = 0;
    double area = 0;
};
VolumeAndArea measure(MeshKernel const& kernel);
