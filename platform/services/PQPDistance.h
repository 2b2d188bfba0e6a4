// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <functional>
#include <memory>

/// Distance queries against the surface of a mesh, which is read through its kernel's matrix.
/// Queries are thread-safe.
class PQPDistance
{
public:
    /// Builds the query structure; the kernel may change or go afterwards.
    ///
    /// progress  a percentage, often enough for a cancel to take effect within 100 ms
    /// throws    what `progress` throws
    /// cost      O(n log n) on all cores, about 0.2 s for a million triangles on two
    PQPDistance(MeshKernel* kernel, std::function<void(int)> progress);
    ~PQPDistance();
    PQPDistance(PQPDistance const&) = delete;
    PQPDistance& operator=(PQPDistance const&) = delete;

    /// A value whose magnitude is the point's distance from the surface, in millimetres; here it is
    /// never negative. Triangles without area count as the segments or points that they are.
    ///
    /// returns  the distance from the nearest triangle, as exact as a double; infinity if the mesh
    ///          is empty or a coordinate is not finite
    /// cost     microseconds on a million triangles
    double distance(UPoint3<float> point) const;

private:
    struct Tree;
    std::unique_ptr<Tree> m_tree;
};
