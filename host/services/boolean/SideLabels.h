// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/services/boolean/CurveNetwork.h"
#include "host/services/boolean/SheetOrder.h"

#include <cstdint>
#include <functional>
#include <vector>

/// Where the triangles of both operands lie with regard to the other one.
struct SideLabels
{
    static constexpr std::int8_t unknown = -1;

    /// Of a region of the first operand: whether the second lies in front of it and behind it. They
    /// differ where the surfaces lie on each other.
    struct Sides
    {
        std::int8_t front = unknown;
        std::int8_t behind = unknown;
        bool operator==(Sides const&) const = default;
    };

    /// By region; those of the second operand stay unknown.
    std::vector<Sides> ofFirst;
    /// By vertex of the first operand: whether it lies in the second. Unknown for one on the
    /// curves.
    std::vector<std::int8_t> ofFirstVertices;
    /// By region: the winding number of the first operand; nothing of value where `isOnFirst`.
    std::vector<int> ofSecond;
    std::vector<bool> isOnFirst;
    /// By vertex of the second operand, counted from its first.
    std::vector<int> ofSecondVertices;
};

/// How to find a side where no curve tells it: winding numbers of an operand around points.
struct WindingNumbers
{
    using Points = std::vector<UPoint3<float>>;
    std::function<std::vector<int>(Points const&)> ofFirst;
    std::function<std::vector<int>(Points const&)> ofSecond;
};

/// Carries the seeds of the curves over the triangles that no curve divides, by the vertices they
/// share.
///
/// known    by vertex of the first operand: whether it lies in the second, if that is known before
/// returns  false if the curves contradict each other, as where an operand crosses itself
bool labelSides(OperandSoup const& soup, CurveNetwork const& network, SideSeeds const& seeds,
                std::vector<std::int8_t> const& known, WindingNumbers const& winding,
                SideLabels& labels);
