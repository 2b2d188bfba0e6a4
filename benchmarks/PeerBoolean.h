// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <cstddef>
#include <memory>

/// CGAL's corefine_and_compute_difference on the meshes of two kernels, in its usual kernel (exact
/// predicates, points rounded to double).
class PeerDifference
{
public:
    /// Converts the meshes. Both are closed and manifold.
    PeerDifference(MeshKernel const& first, MeshKernel const& second);
    ~PeerDifference();
    PeerDifference(PeerDifference const&) = delete;
    PeerDifference& operator=(PeerDifference const&) = delete;

    /// The seconds of processor time that one difference takes. The copies of the operands that it spoils are made
    /// before.
    double run();

    /// The triangles of the last result; 0 where it failed.
    std::size_t triangles() const;
    double volume() const;

private:
    struct Meshes;
    std::unique_ptr<Meshes> m_meshes;
};
