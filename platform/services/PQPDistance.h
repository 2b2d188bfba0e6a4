// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/mesh/MeshKernel.h"

#include <functional>
#include <memory>

/// Distance queries against the surface of a mesh. Queries are thread-safe.
class PQPDistance
{
public:
    /// Builds the query structure; the kernel may change or go afterwards.
    PQPDistance(MeshKernel* kernel, std::function<void(int)> progress);
    ~PQPDistance();
    PQPDistance(PQPDistance const&) = delete;
    PQPDistance& operator=(PQPDistance const&) = delete;

    /// A value whose magnitude is the point's distance from the surface, in millimetres.
    double distance(UPoint3<float> point) const;

private:
    struct Tree;
    std::unique_ptr<Tree> m_tree;
};
