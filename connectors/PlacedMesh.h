// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <memory>
#include <span>

/// A part's mesh for reading, and the matrix that takes it to its place. Holding one keeps the
/// records as they are: who changes the part meanwhile changes a copy.
struct PlacedMesh
{
    std::shared_ptr<UMesh<float> const> mesh;
    UMatrix4<float> matrix;
    bool isInPlace;

    explicit PlacedMesh(MeshKernel const& kernel)
        : mesh(kernel.readMesh()),
          matrix(kernel.getMatrix()),
          isInPlace(kernel.getMatrix().isIdentity())
    {}

    /// A point of the records in world space.
    UPoint3<float> placed(UPoint3<float> const& p) const { return isInPlace ? p : matrix * p; }

    /// Some of the triangles with the vertices they use, under the same matrix.
    ///
    /// triangles  of the mesh, in its order
    /// returns    the vertices are in the order of the mesh too, and all is numbered
    std::unique_ptr<MeshKernel> copyOf(std::span<UTriangle<float>* const> triangles) const;
};
