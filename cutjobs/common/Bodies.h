// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>

class MeshKernel;

/// What a mesh consists of: sets of triangles that hang together over vertices.
struct BodyCount
{
    /// All of them.
    std::size_t shells = 0;
    /// Those that enclose material, which is what falls apart from the rest; the others are
    /// cavities.
    std::size_t bodies = 0;
};

/// poll    called now and then; may be empty
/// throws  what the poll throws
/// cost    two passes over the mesh
BodyCount countBodies(MeshKernel const& kernel, std::function<void()> const& poll = {});

/// The shells alone, in one pass.
std::size_t countShells(MeshKernel const& kernel, std::function<void()> const& poll = {});
