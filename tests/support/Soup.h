// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/geometry/UPoint3.h"
#include "platform/mesh/MeshKernel.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

/// A plain indexed mesh for tests: points and triangles, nothing else.
struct Soup
{
    std::vector<UPoint3<float>> points;
    std::vector<std::array<std::uint32_t, 3>> triangles;

    std::uint32_t add(UPoint3<float> const& p)
    {
        points.push_back(p);
        return std::uint32_t(points.size() - 1);
    }
    void add(std::uint32_t a, std::uint32_t b, std::uint32_t c) { triangles.push_back({a, b, c}); }
    /// Appends another mesh without joining points.
    void append(Soup const& other);
    /// Turns every triangle round.
    void flip();
    /// Joins points that coincide exactly.
    void joinPoints();
};

/// A kernel with identifiers, normals and box set, as a file reader makes it.
std::unique_ptr<MeshKernel> kernelOf(Soup const& soup);
/// The mesh of a kernel, its matrix applied.
Soup soupOf(MeshKernel const& kernel);

Soup moved(Soup soup, UMatrix4<float> const& matrix);
/// The same mesh with its points and triangles in another order and its corners turned.
Soup shuffled(Soup const& soup, unsigned seed);
/// Each triangle split into four, edge points moved towards the neighbours' average (after Loop,
/// 1987), so that neighbours are not coplanar.
Soup subdivided(Soup const& soup);
