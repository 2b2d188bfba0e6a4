// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/TriangleTree.h"
#include "tests/support/RandomSolids.h"

#include <algorithm>
#include <random>

/// Tools for tests of how they are searched, and chance places near them.

/// Shells, bodies that lie apart, needles, a turned mesh, and what touches or crosses itself.
std::vector<NamedSoup> toolFamily();

MeshArrays arraysOf(Soup const& soup);
TriangleTree::Box boxOf(MeshArrays const& mesh);
TriangleTree::Box boxOf(UPoint3<float> const& p);

/// A sequence of places.
class Chance
{
public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    float between(float low, float high)
    {
        return std::clamp(std::uniform_real_distribution<float>(low, high)(m_random), low, high);
    }
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    UPoint3<float> in(TriangleTree::Box const& box)
    {
        UPoint3<float> p;
        for (int k = 0; k < 3; ++k)
            p[k] = between(box.low[std::size_t(k)], box.high[std::size_t(k)]);
        return p;
    }
    /// A box of a share of another's size, which may reach beyond it.
    TriangleTree::Box boxNear(TriangleTree::Box const& whole, float share)
    {
        TriangleTree::Box box;
        box.low[3] = box.high[3] = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            float const extent = whole.high[k] - whole.low[k];
            box.low[k] = between(whole.low[k] - extent / 4, whole.high[k]);
            box.high[k] = box.low[k] + share * extent;
        }
        return box;
    }
    UMatrix4<float> motion() { return randomMotion(m_random, 3); }

private:
    std::mt19937 m_random;
};
