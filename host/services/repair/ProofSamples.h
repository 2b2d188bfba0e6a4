// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/WindingField.h"

#include <random>
#include <vector>

/// A box along the axes; null at first.
struct SolidBox
{
    WindingField::Place low{1e300, 1e300, 1e300};
    WindingField::Place high{-1e300, -1e300, -1e300};

    /// Around the triangles of a mesh.
    static SolidBox around(MeshArrays const& mesh);

    void add(MeshArrays::Point const& p);
    bool isNull() const { return low[0] > high[0]; }
    double volume() const;
    /// The largest coordinate without its sign.
    double reach() const;
};

/// Points at which the solid is asked for; the same each time.
class ProofSamples
{
public:
    static constexpr std::size_t mostTriangles = 1000;

    /// Near a part's triangles, on both sides, and about them; near so many of them at most.
    ///
    /// unit  the last place of the largest coordinate
    void addNear(MeshArrays const& part, double unit);
    /// At random.
    void addWithin(SolidBox const& box, int count);

    std::vector<WindingField::Place> places;

private:
    void addNear(MeshArrays const& part, std::size_t t, double unit);
    double share() { return m_random() * 0x1p-32; }

    std::mt19937 m_random{1};
};
